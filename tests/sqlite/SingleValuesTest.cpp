#include <gtest/gtest.h>

#include "adapters/sqltext/SingleValues.h"

namespace quorvane::sqltext {
namespace {

TEST(SingleValuesTest, OfAComparedSelectTheFirstRowCounts) {
  EXPECT_EQ(
      TakeFirstOfComparedSelects("SELECT a FROM t WHERE b =(SELECT c FROM u WHERE d=1) AND e=2"),
      "SELECT a FROM t WHERE b =(SELECT c FROM u WHERE d=1 LIMIT 1) AND e=2");
  EXPECT_EQ(TakeFirstOfComparedSelects("select a from t where b > ( select c from u )"),
            "select a from t where b > ( select c from u  LIMIT 1)");
}

TEST(SingleValuesTest, BracketsInsideItAreNotItsEnd) {
  EXPECT_EQ(
      TakeFirstOfComparedSelects(
          "SELECT a FROM t WHERE b=(SELECT c FROM u WHERE d IN (1,2) AND e=(SELECT f FROM v))"),
      "SELECT a FROM t WHERE b=(SELECT c FROM u WHERE d IN (1,2) AND e=(SELECT f FROM v "
      "LIMIT 1) LIMIT 1)");
}

TEST(SingleValuesTest, OthersStay) {
  for (const auto* const statement :
       {"", ")", "SELECT a FROM t WHERE b IN (SELECT c FROM u)", "SELECT a FROM t WHERE b=(c)",
        "SELECT a FROM t WHERE b='=(SELECT c)'", "SELECT a FROM (SELECT b FROM u) AS t",
        "SELECT a FROM t WHERE b=(SELECT c FROM u LIMIT 1)", "SELECT a FROM t WHERE NOT (b=1)",
        "SELECT a FROM t -- =(SELECT b)"})
    EXPECT_EQ(TakeFirstOfComparedSelects(statement), statement);
}

}  // namespace
}  // namespace quorvane::sqltext
