#include <gtest/gtest.h>

#include "adapters/sqltext/ExcludedSelects.h"

namespace quorvane::sqltext {
namespace {

TEST(ExcludedSelectsTest, AreJoined) {
  EXPECT_EQ(JoinExcludedSelects("SELECT DISTINCT a FROM t WHERE b not in (SELECT c FROM u)"),
            "SELECT DISTINCT a FROM t WHERE (NOT EXISTS (SELECT 1 FROM u WHERE c=t.b) AND "
            "NOT EXISTS (SELECT 1 FROM u WHERE c IS NULL) AND "
            "(t.b IS NOT NULL OR NOT EXISTS (SELECT 1 FROM u)))");
  EXPECT_EQ(JoinExcludedSelects("DELETE FROM t WHERE  b NOT IN ( SELECT c FROM u )  OR d=1"),
            "DELETE FROM t WHERE  (NOT EXISTS (SELECT 1 FROM u WHERE c=t.b) AND "
            "NOT EXISTS (SELECT 1 FROM u WHERE c IS NULL) AND "
            "(t.b IS NOT NULL OR NOT EXISTS (SELECT 1 FROM u)))  OR d=1");
}

TEST(ExcludedSelectsTest, OthersStay) {
  for (const auto* const statement : {"", "NOT IN", "SELECT a FROM t WHERE b NOT IN (1,2)",
                                      "SELECT a FROM t WHERE b IN (SELECT c FROM u)",
                                      "SELECT a FROM t WHERE b NOT IN (SELECT c FROM t)",
                                      "SELECT a FROM t WHERE b NOT IN (SELECT c FROM u WHERE d=1)",
                                      "SELECT a FROM t, v WHERE b NOT IN (SELECT c FROM u)",
                                      "SELECT a FROM t WHERE t.b NOT IN (SELECT c FROM u)",
                                      "SELECT a FROM t WHERE d=1 AND b NOT IN (SELECT c FROM u)",
                                      "SELECT ' FROM t WHERE b NOT IN (SELECT c FROM u)'",
                                      "SELECT a -- FROM t WHERE b NOT IN (SELECT c FROM u)",
                                      "SELECT a FROM t WHERE b NOT IN (SELECT c FROM u"})
    EXPECT_EQ(JoinExcludedSelects(statement), statement);
}

}  // namespace
}  // namespace quorvane::sqltext
