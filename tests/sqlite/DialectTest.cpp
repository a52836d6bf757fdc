#include <gtest/gtest.h>

#include "adapters/sqltext/Dialect.h"

namespace quorvane::sqltext {
namespace {

constexpr const char* kStatement =
    "SELECT A.x + ' ' + y AS N, z FROM [A] LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b UNION "
    "SELECT x, z FROM D ORDER BY D.z";

TEST(DialectTest, EngineIsKnownByWhatItsDriverCallsIt) {
  EXPECT_EQ(EngineNamed("SQLite"), Engine::Sqlite);
  EXPECT_EQ(EngineNamed("Microsoft SQL Server"), Engine::SqlServer);
  EXPECT_EQ(EngineNamed("PostgreSQL"), Engine::PostgreSql);
  EXPECT_EQ(EngineNamed("Otro"), Engine::Unknown);
}

TEST(DialectTest, UnknownEngineGetsTheTextAsItIs) {
  EXPECT_EQ(Put(kStatement, Engine::Unknown), kStatement);
}

TEST(DialectTest, OnSqlServerOnlyTheOrderOfAUnionChanges) {
  EXPECT_EQ(Put(kStatement, Engine::SqlServer),
            "SELECT A.x + ' ' + y AS N, z FROM [A] LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b "
            "UNION SELECT x, z FROM D ORDER BY z");
}

TEST(DialectTest, PostgreSqlJoinsTextsWithBarsAndQuotesNames) {
  EXPECT_EQ(Put(kStatement, Engine::PostgreSql),
            "SELECT A.x || ' ' || y AS N, z FROM \"a\" LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON "
            "B.i=A.b UNION SELECT x, z FROM D ORDER BY z NULLS FIRST, 1,2");
}

TEST(DialectTest, SqliteWalksNestedJoinsAsAChain) {
  EXPECT_EQ(Put("SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b WHERE x='a'+y",
                Engine::Sqlite),
            "SELECT x FROM A LEFT JOIN B ON B.i=A.b LEFT JOIN C ON C.i=B.c WHERE x='a'||y");
}

}  // namespace
}  // namespace quorvane::sqltext
