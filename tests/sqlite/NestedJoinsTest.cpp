#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "adapters/sqltext/NestedJoins.h"
#include "tests/sqlite/PlainDatabase.h"
#include "tests/support/TestSchool.h"

namespace quorvane::sqlite {
namespace {

std::string Unchanged(const std::string& statement) {
  return sqltext::FlattenJoins(statement) == statement ? "unchanged"
                                                       : sqltext::FlattenJoins(statement);
}

TEST(NestedJoinsTest, ABracketOfLeftJoinsBecomesPartOfTheChain) {
  EXPECT_EQ(
      sqltext::FlattenJoins("SELECT A.x FROM (A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i = A.b) "
                            "LEFT JOIN D ON D.i=A.d WHERE A.x=?"),
      "SELECT A.x FROM A LEFT JOIN B ON B.i = A.b LEFT JOIN C ON C.i=B.c "
      "LEFT JOIN D ON D.i=A.d WHERE A.x=?");
}

TEST(NestedJoinsTest, EachHalfOfAUnionIsRewritten) {
  const std::string half = "SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b";
  const std::string flat = "SELECT x FROM A LEFT JOIN B ON B.i=A.b LEFT JOIN C ON C.i=B.c ";
  EXPECT_EQ(sqltext::FlattenJoins(half + " UNION " + half + " ORDER BY x"),
            flat + "UNION " + flat + "ORDER BY x");
}

TEST(NestedJoinsTest, InnerJoinsBeforeTheBracketStayInner) {
  EXPECT_EQ(
      sqltext::FlattenJoins("SELECT x FROM ((A INNER JOIN (B INNER JOIN C ON C.i=B.c) ON B.i=A.b) "
                            "INNER JOIN D ON D.i=A.d) LEFT JOIN (E LEFT JOIN F ON F.i=E.f) ON "
                            "E.a=A.i"),
      "SELECT x FROM A INNER JOIN B ON B.i=A.b INNER JOIN C ON C.i=B.c INNER JOIN D ON "
      "D.i=A.d LEFT JOIN E ON E.a=A.i LEFT JOIN F ON F.i=E.f ");
}

TEST(NestedJoinsTest, ACommentStaysAsItIs) {
  EXPECT_EQ(Unchanged("SELECT x FROM A -- FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b\n"
                      "WHERE x=1"),
            "unchanged");
}

TEST(NestedJoinsTest, ATableOutOfSightOfTheBracketStaysSo) {
  // The engine refuses it; the chain would see it.
  EXPECT_EQ(Unchanged("SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=A.b) ON B.i=A.b"),
            "unchanged");
}

TEST(NestedJoinsTest, WhatCouldChangeTheRowsStaysAsItIs) {
  // An inner join in the bracket drops rows that the chain would keep.
  EXPECT_EQ(Unchanged("SELECT x FROM A LEFT JOIN (B INNER JOIN C ON C.i=B.c) ON B.i=A.b"),
            "unchanged");
  // The condition isn't on the bracket's first table.
  EXPECT_EQ(Unchanged("SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON C.i=A.b"),
            "unchanged");
  EXPECT_EQ(Unchanged("SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b AND B.j=1"),
            "unchanged");
  EXPECT_EQ(Unchanged("SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i<A.b"),
            "unchanged");
  EXPECT_EQ(Unchanged("SELECT x FROM A LEFT JOIN (SELECT 1) ON B.i=A.b"), "unchanged");
  EXPECT_EQ(Unchanged("SELECT 'FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b'"),
            "unchanged");
  EXPECT_EQ(Unchanged("SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c"), "unchanged");
}

/// Tables whose references are often missing, Null or doubled.
void FillAtRandom(const test::TestSchool& school, std::mt19937& random) {
  const auto reference = [&random] {
    const auto number = random() % 9;
    return number == 0 ? std::string("NULL") : std::to_string(number);
  };
  std::string statements = "CREATE TABLE A (i, b); CREATE TABLE B (i, c); CREATE TABLE C (i, d);";
  for (const auto* const table : {"A", "B", "C"})
    for (int row = 0; row < 12; ++row)
      statements += std::string("INSERT INTO ") + table + " VALUES (" + reference() + "," +
                    reference() + ");";
  school.Sql(statements);
}

TEST(NestedJoinsTest, GivesTheRowsOfTheOriginalOnRandomTables) {
  const std::string original =
      "SELECT A.i,A.b,B.i,B.c,C.i,C.d FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b";
  std::mt19937 random(20250915);
  for (int round = 0; round < 25; ++round) {
    const test::TestSchool school;
    FillAtRandom(school, random);
    test::PlainDatabase engine(school.Path());
    auto expected = engine.Run(original);
    auto rows = engine.Run(sqltext::FlattenJoins(original));
    std::sort(expected.begin(), expected.end());
    std::sort(rows.begin(), rows.end());
    ASSERT_EQ(rows, expected) << "round " << round;
  }
}

}  // namespace
}  // namespace quorvane::sqlite
