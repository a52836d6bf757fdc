#include <chrono>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <string>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/StatementCache.h"

namespace quorvane::sqlite {
namespace {

class StatementCacheTest : public testing::Test {
 protected:
  void Add(const std::string& text) {
    cache_.Add(text, PreparedStatement(database_.Handle(), text, true));
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

}  // namespace
}  // namespace quorvane::sqlite
