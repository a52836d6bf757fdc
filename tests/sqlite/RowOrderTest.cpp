#include <gtest/gtest.h>

#include "adapters/sqltext/RowOrder.h"

namespace quorvane::sqltext {
namespace {

TEST(RowOrderTest, NullComesFirstAndEqualRowsByTheirColumns) {
  EXPECT_EQ(OrderAsInAFile("SELECT a, b FROM t ORDER BY c"),
            "SELECT a, b FROM t ORDER BY c NULLS FIRST, 1,2");
  EXPECT_EQ(OrderAsInAFile("select t.a from t order  by t.b, c , [d] "),
            "select t.a from t order  by t.b NULLS FIRST, c NULLS FIRST , [d] NULLS FIRST, 1 ");
}

TEST(RowOrderTest, WhatDescendsHasNullLast) {
  EXPECT_EQ(OrderAsInAFile("SELECT a FROM t ORDER BY b DESC, c ASC, (d) Desc"),
            "SELECT a FROM t ORDER BY b DESC NULLS LAST, c ASC NULLS FIRST, (d) Desc NULLS LAST, "
            "1");
}

TEST(RowOrderTest, RowsWithoutAnOrderGetThatOfTheirColumns) {
  EXPECT_EQ(OrderAsInAFile("SELECT DISTINCT a, Ltrim(b, ' ') AS n FROM t WHERE c IN (1,2)"),
            "SELECT DISTINCT a, Ltrim(b, ' ') AS n FROM t WHERE c IN (1,2) ORDER BY 1,2");
}

TEST(RowOrderTest, OfAStarTheFirstColumnIsKnown) {
  EXPECT_EQ(OrderAsInAFile("SELECT * FROM t"), "SELECT * FROM t ORDER BY 1");
  EXPECT_EQ(OrderAsInAFile("SELECT a, t.*, b FROM t ORDER BY c"),
            "SELECT a, t.*, b FROM t ORDER BY c NULLS FIRST, 1,2");
}

TEST(RowOrderTest, AUnionIsOrderedAsAWhole) {
  EXPECT_EQ(OrderAsInAFile("SELECT a, b FROM t UNION SELECT a, b FROM u ORDER BY a"),
            "SELECT a, b FROM t UNION SELECT a, b FROM u ORDER BY a NULLS FIRST, 1,2");
}

TEST(RowOrderTest, OrderInsideBracketsOrATextIsNoneOfTheStatements) {
  EXPECT_EQ(OrderAsInAFile("SELECT a FROM (SELECT a FROM t ORDER BY b) AS t WHERE c=' ORDER BY d'"),
            "SELECT a FROM (SELECT a FROM t ORDER BY b) AS t WHERE c=' ORDER BY d' ORDER BY 1");
}

TEST(RowOrderTest, RemarkAtTheEndStaysThere) {
  EXPECT_EQ(OrderAsInAFile("SELECT a FROM t -- todas"), "SELECT a FROM t ORDER BY 1 -- todas");
}

TEST(RowOrderTest, OthersStay) {
  for (const auto* const statement :
       {"", "SELECT 7", "SELECT now()", "SELECT MAX(a) FROM t", "SELECT COUNT(*) FROM t",
        "SELECT a FROM t LIMIT 1", "SELECT a FROM t ORDER BY a OFFSET 3", "SELECT a INTO u FROM t",
        "SELECT a FROM t ORDER BY a NULLS LAST", "SELECT a FROM t GROUP BY a",
        "SELECT a FROM t FOR UPDATE", "SELECT a FROM t; SELECT b FROM u",
        "DELETE FROM t WHERE a IN (SELECT a FROM u)", "INSERT INTO t SELECT a FROM u",
        "DECLARE c CURSOR FOR SELECT a FROM t"})
    EXPECT_EQ(OrderAsInAFile(statement), statement);
}

}  // namespace
}  // namespace quorvane::sqltext
