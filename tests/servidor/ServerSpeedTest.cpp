// What the nine screens cost a server, told by counts, which no busy machine changes; the benchmark
// (tools/medidas --servidor) tells the times.

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "bench/ScreenPlay.h"
#include "bench/ServerSchool.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/TcpProxy.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using bench::PlayScreen;
using bench::RecordedStatement;
using bench::ServerSchool;

constexpr int kFew = 1000;
constexpr int kMany = 20000;
constexpr double kMostGrowth = 1.5;

class ServerSpeedTest : public testing::TestWithParam<std::size_t> {
 protected:
  static void SetUpTestSuite() {
    few_ = MakeSchool(kFew);
    many_ = MakeSchool(kMany);
  }
  static void TearDownTestSuite() {
    few_.reset();
    many_.reset();
  }

  /// The rows that the server goes through for these statements, one after the other.
  static std::int64_t RowsRead(const ServerSchool& school,
                               const std::vector<RecordedStatement>& statements) {
    const auto connection = school.Address().Open("");
    const auto readSoFar = [&] {
      connection->Execute("SELECT pg_stat_force_next_flush()");
      return connection
          ->Execute("SELECT sum(seq_tup_read + coalesce(idx_tup_fetch,0)) FROM pg_stat_user_tables")
          .Fields(0)
          .Long();
    };
    const auto before = readSoFar();
    for (const auto& statement : statements) connection->Execute(statement.text);
    return readSoFar() - before;
  }

  /// Of one opening of the screen; the register's two purges go over whole tables.
  std::int64_t RowsOfOpening(const ServerSchool& school) const {
    const auto play = PlayScreen(GetParam(), school.Address(), 0);
    EXPECT_FALSE(play.opening.empty());
    const auto rows = RowsRead(school, play.opening);
    // Gives back what the opening has taken.
    RowsRead(school, play.saving);
    return rows;
  }

  static std::unique_ptr<ServerSchool> few_, many_;

 private:
  static std::unique_ptr<ServerSchool> MakeSchool(int students) {
    const TempFolder folder;
    const bench::BenchSchool file(folder / ".", students);
    auto server = OwnerString("");
    server.erase(server.find(";Database="));
    return std::make_unique<ServerSchool>(server, file);
  }
};

std::unique_ptr<ServerSchool> ServerSpeedTest::few_, ServerSpeedTest::many_;

TEST_P(ServerSpeedTest, OneRoundTripAStatement) {
  const TcpProxy proxy(few_->Port());
  const auto play =
      PlayScreen(GetParam(), few_->Through(proxy.Port()), 0, [&proxy] { return proxy.Bursts(); });
  EXPECT_GT(play.opening.size(), 10U);
  EXPECT_EQ(play.openCount, play.purging.size() + play.opening.size());
  EXPECT_EQ(play.saveCount, play.saving.size());
}

TEST_P(ServerSpeedTest, OpeningReadsHardlyMoreOfALargeSchool) {
  const auto few = RowsOfOpening(*few_);
  const auto many = RowsOfOpening(*many_);
  EXPECT_GT(few, 0);
  EXPECT_LE(static_cast<double>(many), kMostGrowth * static_cast<double>(few))
      << few << " rows of " << kFew << " students, " << many << " of " << kMany;
}

INSTANTIATE_TEST_SUITE_P(, ServerSpeedTest,
                         testing::Range(std::size_t{0}, bench::ScreenNames().size()),
                         [](const auto& screen) { return bench::ScreenNames()[screen.param]; });

}  // namespace
}  // namespace quorvane::test
