// What the host of a script asks of a server and holds there.

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "apps/quorvane-guion/SchoolConnections.h"
#include "platform/data/Connection.h"
#include "platform/data/StatementTrace.h"
#include "tests/support/ServerSchools.h"

namespace quorvane::test {
namespace {

using guion::SchoolConnections;

class OnAServer : public testing::Test {
 protected:
  void SetUp() override {
    if (!OnServer()) GTEST_SKIP() << "no server";
    database_ = TakeServerSchool();
    options_.odbc = ServerString(database_);
  }
  void TearDown() override {
    if (!database_.empty()) GiveBackServerSchool(database_);
  }

  [[nodiscard]] std::string Ask(const std::string& statement) const {
    return OwnersConnection(database_).Execute(statement).Fields(0).Text();
  }

  /// How many the server holds beside the asking one; one that was closed takes a moment to go.
  void ExpectHeld(const std::string& count) const {
    std::string held;
    for (int tries = 0; tries < 100 && held != count; ++tries) {
      if (tries > 0) std::this_thread::sleep_for(std::chrono::milliseconds(50));
      held = Ask("SELECT CAST(count(*) AS text) FROM pg_stat_activity WHERE datname='" + database_ +
                 "' AND pid<>pg_backend_pid()");
    }
    EXPECT_EQ(held, count);
  }

  std::string database_;
  guion::PlayOptions options_;
};

TEST_F(OnAServer, AProgramAtRestHoldsTwoConnections) {
  const SchoolConnections school(options_);
  ExpectHeld("2");
  auto connections = school.Connections();
  EXPECT_EQ(connections.borrado.Execute("SELECT IDUsuario FROM Usuario").RecordCount(), 0);
  ExpectHeld("3");
}

TEST_F(OnAServer, TheDateIsTheServersWhereverThisMachineIs) {
  std::vector<std::string> days;
  // Somewhere between these two it is always another day than here.
  for (const std::string zone : {"Etc/GMT+12", "Etc/GMT-14"}) {
    OwnersConnection(database_).Execute("ALTER DATABASE " + database_ + " SET timezone TO '" +
                                        zone + "'");
    const SchoolConnections school(options_);
    int observed = 0;
    school.Connections().centro.Observe([&](const auto&, const auto&) { ++observed; });
    days.push_back(school.Today());
    EXPECT_EQ(days.back(), Ask("SELECT to_char(now() AT TIME ZONE '" + zone + "','DD/MM/YYYY')"));
    EXPECT_EQ(observed, 0);
  }
  OwnersConnection(database_).Execute("ALTER DATABASE " + database_ + " RESET timezone");
  EXPECT_NE(days.front(), days.back());
}

}  // namespace
}  // namespace quorvane::test
