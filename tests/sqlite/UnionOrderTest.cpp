#include <gtest/gtest.h>

#include "adapters/sqltext/UnionOrder.h"

namespace quorvane::sqltext {
namespace {

TEST(UnionOrderTest, OrderOfAUnionNamesItsColumnsAlone) {
  EXPECT_EQ(OrderUnionByColumns("SELECT a.x, b.y FROM a UNION SELECT c.x, c.y FROM c "
                                "ORDER BY a.x DESC, b.y"),
            "SELECT a.x, b.y FROM a UNION SELECT c.x, c.y FROM c ORDER BY x DESC, y");
  EXPECT_EQ(OrderUnionByColumns("select x from a Union All select x from b order  by [a].[x]"),
            "select x from a Union All select x from b order  by [x]");
}

TEST(UnionOrderTest, OrderOfASingleSelectStays) {
  const auto* const statement = "SELECT a.x FROM a ORDER BY a.x, 'UNION'";
  EXPECT_EQ(OrderUnionByColumns(statement), statement);
}

TEST(UnionOrderTest, UnionInsideBracketsIsNoneOfTheStatements) {
  const auto* const statement =
      "SELECT a.x FROM a WHERE x IN (SELECT x FROM b UNION SELECT x FROM c) ORDER BY a.x";
  EXPECT_EQ(OrderUnionByColumns(statement), statement);
}

TEST(UnionOrderTest, UnionWithoutAnOrderStays) {
  const auto* const statement =
      "SELECT a.x FROM a UNION SELECT b.x FROM b WHERE b.y='ORDER BY b.z'";
  EXPECT_EQ(OrderUnionByColumns(statement), statement);
}

TEST(UnionOrderTest, FractionsAndTextsInTheOrderStay) {
  EXPECT_EQ(OrderUnionByColumns("SELECT x FROM a UNION SELECT x FROM b ORDER BY 1.5, 'a.x', a.x"),
            "SELECT x FROM a UNION SELECT x FROM b ORDER BY 1.5, 'a.x', x");
}

}  // namespace
}  // namespace quorvane::sqltext
