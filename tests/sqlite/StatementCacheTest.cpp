#include <chrono>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <string>
#include <vector>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/StatementCache.h"
#include "adapters/sqlite/StatementLifter.h"

namespace quorvane::sqlite {
namespace {

class StatementCacheTest : public testing::Test {
 protected:
  void Add(const std::string& text) {
    StatementLifter lifter;
    ASSERT_TRUE(lifter.Lift(text));
    cache_.Add(lifter.Shape(), PreparedStatement(database_.Handle(), lifter.Text(), true));
  }

  /// The first value of the statement that is found as the one that follows; -1 for none.
  int Following(const std::string& text) {
    std::vector<std::int64_t> values;
    auto* const statement = cache_.Following(text, values);
    return statement == nullptr ? -1 : statement->Run(values, {}).Fields(0).Long();
  }

  Database database_{":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                     std::chrono::milliseconds(0)};
  StatementCache cache_{2};
};

TEST_F(StatementCacheTest, FindsWhatWasAdded) {
  EXPECT_EQ(cache_.Find("SELECT 1"), nullptr);
  Add("SELECT 1");
  ASSERT_NE(cache_.Find("SELECT 1"), nullptr);
  EXPECT_EQ(cache_.Find("SELECT 1")->Run({}, {}).Fields(0).Long(), 1);
}

TEST_F(StatementCacheTest, TheOneUsedLongestAgoGoesFirst) {
  Add("SELECT 1");
  Add("SELECT 2");
  ASSERT_NE(cache_.Find("SELECT 1"), nullptr);
  Add("SELECT 3");
  EXPECT_EQ(cache_.Size(), 2U);
  EXPECT_NE(cache_.Find("SELECT 1"), nullptr);
  EXPECT_EQ(cache_.Find("SELECT 2"), nullptr);
  EXPECT_NE(cache_.Find("SELECT 3"), nullptr);
}

TEST_F(StatementCacheTest, KnowsWhatFollowedLastTime) {
  const std::string one = "SELECT COUNT(*)+1 FROM sqlite_master WHERE rootpage>=";
  const std::string two = "SELECT COUNT(*)+2 FROM sqlite_master WHERE rootpage>=";
  Add(one + "1");
  Add(two + "1");
  EXPECT_EQ(Following(one + "1"), -1);
  cache_.Find(one + "?");
  EXPECT_EQ(Following(two + "20"), 2);
  EXPECT_EQ(Following(one + "3"), 1);
  EXPECT_EQ(Following(one + "3"), -1);
  EXPECT_EQ(Following(two + "4"), 2);
}

TEST_F(StatementCacheTest, ForgetsWhatFollowedWhenItGoes) {
  Add("SELECT 1");
  Add("SELECT 2");
  Add("SELECT 3");
  ASSERT_NE(cache_.Find("SELECT 2"), nullptr);
  EXPECT_EQ(Following("SELECT 3"), 3);
  Add("SELECT 4");
  ASSERT_NE(cache_.Find("SELECT 3"), nullptr);
  EXPECT_EQ(Following("SELECT 2"), -1);
  EXPECT_EQ(Following("SELECT 4"), 4);
}

TEST_F(StatementCacheTest, NothingFollowsInAnEmptyOne) { EXPECT_EQ(Following("SELECT 1"), -1); }

}  // namespace
}  // namespace quorvane::sqlite
