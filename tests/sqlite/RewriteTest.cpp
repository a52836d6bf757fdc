// What becomes of a statement on its way to an engine: each step by itself, and all of an engine.

#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "adapters/sqltext/BracketedNames.h"
#include "adapters/sqltext/Concatenation.h"
#include "adapters/sqltext/Dialect.h"
#include "adapters/sqltext/ExcludedSelects.h"
#include "adapters/sqltext/NestedJoins.h"
#include "adapters/sqltext/RowOrder.h"
#include "adapters/sqltext/SingleValues.h"
#include "adapters/sqltext/UnionOrder.h"
#include "tests/sqlite/PlainDatabase.h"
#include "tests/support/TestSchool.h"

namespace quorvane::sqltext {
namespace {

using Step = std::string (*)(std::string_view);

template <Engine engine>
std::string PutOn(std::string_view statement) {
  return Put(statement, engine);
}

struct Rewrite {
  const char* name;
  Step step;
  std::string statement;
  std::string rewritten;
};

void PrintTo(const Rewrite& rewrite, std::ostream* out) { *out << rewrite.statement; }

constexpr const char* kForEngines =
    "SELECT A.x + ' ' + y AS N, z FROM [A] LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b UNION "
    "SELECT x, z FROM D ORDER BY D.z";

const std::vector<Rewrite> kRewrites = {
    {"NameInBrackets_IsQuotedInSmallLetters", QuoteBracketedNames,
     "SELECT MAX(IDAlumnopte_matdet) FROM [Alumnopte_matdet]",
     "SELECT MAX(IDAlumnopte_matdet) FROM \"alumnopte_matdet\""},
    {"NameInBrackets_IsQuotedWithItsBlanks", QuoteBracketedNames,
     "SELECT [De Todo].[X] FROM [De Todo]", "SELECT \"de todo\".\"x\" FROM \"de todo\""},

    {"Plus_BesideATextJoinsTexts", RewriteConcatenation,
     "SELECT Ltrim(Rtrim(A + ' ' + B)) + ', ' + C AS N FROM T",
     "SELECT Ltrim(Rtrim(A || ' ' || B)) || ', ' || C AS N FROM T"},
    {"Plus_WithoutBlanksJoinsTexts", RewriteConcatenation, "SELECT A+'x'+B", "SELECT A||'x'||B"},
    {"Plus_JoinsTextsAcrossAComment", RewriteConcatenation,
     "SELECT A + /* 1 */ 'b', 'c' -- it's\n + D", "SELECT A || /* 1 */ 'b', 'c' -- it's\n || D"},

    {"UnknownEngine_GetsTheTextAsItIs", PutOn<Engine::Unknown>, kForEngines, kForEngines},
    {"SqlServer_GetsTheOrderOfAUnionAloneChanged", PutOn<Engine::SqlServer>, kForEngines,
     "SELECT A.x + ' ' + y AS N, z FROM [A] LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b "
     "UNION SELECT x, z FROM D ORDER BY z"},
    {"PostgreSql_JoinsTextsWithBarsAndQuotesNames", PutOn<Engine::PostgreSql>, kForEngines,
     "SELECT A.x || ' ' || y AS N, z FROM \"a\" LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON "
     "B.i=A.b UNION SELECT x, z FROM D ORDER BY z NULLS FIRST, 1,2"},
    {"Sqlite_WalksNestedJoinsAsAChain", PutOn<Engine::Sqlite>,
     "SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b WHERE x='a'+y",
     "SELECT x FROM A LEFT JOIN B ON B.i=A.b LEFT JOIN C ON C.i=B.c WHERE x='a'||y"},

    {"ExcludedSelect_IsJoined", JoinExcludedSelects,
     "SELECT DISTINCT a FROM t WHERE b not in (SELECT c FROM u)",
     "SELECT DISTINCT a FROM t WHERE (NOT EXISTS (SELECT 1 FROM u WHERE c=t.b) AND "
     "NOT EXISTS (SELECT 1 FROM u WHERE c IS NULL) AND "
     "(t.b IS NOT NULL OR NOT EXISTS (SELECT 1 FROM u)))"},
    {"ExcludedSelect_IsJoinedBesideAnotherCondition", JoinExcludedSelects,
     "DELETE FROM t WHERE  b NOT IN ( SELECT c FROM u )  OR d=1",
     "DELETE FROM t WHERE  (NOT EXISTS (SELECT 1 FROM u WHERE c=t.b) AND "
     "NOT EXISTS (SELECT 1 FROM u WHERE c IS NULL) AND "
     "(t.b IS NOT NULL OR NOT EXISTS (SELECT 1 FROM u)))  OR d=1"},

    {"NestedJoins_OfLeftJoinsBecomePartOfTheChain", FlattenJoins,
     "SELECT A.x FROM (A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i = A.b) "
     "LEFT JOIN D ON D.i=A.d WHERE A.x=?",
     "SELECT A.x FROM A LEFT JOIN B ON B.i = A.b LEFT JOIN C ON C.i=B.c "
     "LEFT JOIN D ON D.i=A.d WHERE A.x=?"},
    {"NestedJoins_AreRewrittenInEachHalfOfAUnion", FlattenJoins,
     "SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b UNION "
     "SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b ORDER BY x",
     "SELECT x FROM A LEFT JOIN B ON B.i=A.b LEFT JOIN C ON C.i=B.c UNION "
     "SELECT x FROM A LEFT JOIN B ON B.i=A.b LEFT JOIN C ON C.i=B.c ORDER BY x"},
    {"NestedJoins_StayInnerBeforeTheBracket", FlattenJoins,
     "SELECT x FROM ((A INNER JOIN (B INNER JOIN C ON C.i=B.c) ON B.i=A.b) "
     "INNER JOIN D ON D.i=A.d) LEFT JOIN (E LEFT JOIN F ON F.i=E.f) ON E.a=A.i",
     "SELECT x FROM A INNER JOIN B ON B.i=A.b INNER JOIN C ON C.i=B.c INNER JOIN D ON "
     "D.i=A.d LEFT JOIN E ON E.a=A.i LEFT JOIN F ON F.i=E.f "},

    {"RowOrder_HasNullFirstAndEqualRowsByTheirColumns", OrderAsInAFile,
     "SELECT a, b FROM t ORDER BY c", "SELECT a, b FROM t ORDER BY c NULLS FIRST, 1,2"},
    {"RowOrder_OfSeveralColumnsHasNullFirstInEach", OrderAsInAFile,
     "select t.a from t order  by t.b, c , [d] ",
     "select t.a from t order  by t.b NULLS FIRST, c NULLS FIRST , [d] NULLS FIRST, 1 "},
    {"RowOrder_HasNullLastInWhatDescends", OrderAsInAFile,
     "SELECT a FROM t ORDER BY b DESC, c ASC, (d) Desc",
     "SELECT a FROM t ORDER BY b DESC NULLS LAST, c ASC NULLS FIRST, (d) Desc NULLS LAST, 1"},
    {"RowOrder_OfRowsWithoutOneIsThatOfTheirColumns", OrderAsInAFile,
     "SELECT DISTINCT a, Ltrim(b, ' ') AS n FROM t WHERE c IN (1,2)",
     "SELECT DISTINCT a, Ltrim(b, ' ') AS n FROM t WHERE c IN (1,2) ORDER BY 1,2"},
    {"RowOrder_OfAStarKnowsTheFirstColumn", OrderAsInAFile, "SELECT * FROM t",
     "SELECT * FROM t ORDER BY 1"},
    {"RowOrder_OfAStarAmongColumnsKnowsTheFirst", OrderAsInAFile,
     "SELECT a, t.*, b FROM t ORDER BY c", "SELECT a, t.*, b FROM t ORDER BY c NULLS FIRST, 1,2"},
    {"RowOrder_OfAUnionIsOfTheWhole", OrderAsInAFile,
     "SELECT a, b FROM t UNION SELECT a, b FROM u ORDER BY a",
     "SELECT a, b FROM t UNION SELECT a, b FROM u ORDER BY a NULLS FIRST, 1,2"},
    {"RowOrder_InsideBracketsOrATextIsNoneOfTheStatements", OrderAsInAFile,
     "SELECT a FROM (SELECT a FROM t ORDER BY b) AS t WHERE c=' ORDER BY d'",
     "SELECT a FROM (SELECT a FROM t ORDER BY b) AS t WHERE c=' ORDER BY d' ORDER BY 1"},
    {"RowOrder_ComesBeforeARemarkAtTheEnd", OrderAsInAFile, "SELECT a FROM t -- todas",
     "SELECT a FROM t ORDER BY 1 -- todas"},

    {"ComparedSelect_CountsByItsFirstRow", TakeFirstOfComparedSelects,
     "SELECT a FROM t WHERE b =(SELECT c FROM u WHERE d=1) AND e=2",
     "SELECT a FROM t WHERE b =(SELECT c FROM u WHERE d=1 LIMIT 1) AND e=2"},
    {"ComparedSelect_InSmallLettersCountsByItsFirstRow", TakeFirstOfComparedSelects,
     "select a from t where b > ( select c from u )",
     "select a from t where b > ( select c from u  LIMIT 1)"},
    {"ComparedSelect_DoesntEndWithBracketsInsideIt", TakeFirstOfComparedSelects,
     "SELECT a FROM t WHERE b=(SELECT c FROM u WHERE d IN (1,2) AND e=(SELECT f FROM v))",
     "SELECT a FROM t WHERE b=(SELECT c FROM u WHERE d IN (1,2) AND e=(SELECT f FROM v "
     "LIMIT 1) LIMIT 1)"},

    {"UnionOrder_NamesItsColumnsAlone", OrderUnionByColumns,
     "SELECT a.x, b.y FROM a UNION SELECT c.x, c.y FROM c ORDER BY a.x DESC, b.y",
     "SELECT a.x, b.y FROM a UNION SELECT c.x, c.y FROM c ORDER BY x DESC, y"},
    {"UnionOrder_NamesAColumnInBracketsAlone", OrderUnionByColumns,
     "select x from a Union All select x from b order  by [a].[x]",
     "select x from a Union All select x from b order  by [x]"},
    {"UnionOrder_KeepsFractionsAndTexts", OrderUnionByColumns,
     "SELECT x FROM a UNION SELECT x FROM b ORDER BY 1.5, 'a.x', a.x",
     "SELECT x FROM a UNION SELECT x FROM b ORDER BY 1.5, 'a.x', x"},
};

class RewriteTest : public testing::TestWithParam<Rewrite> {};

INSTANTIATE_TEST_SUITE_P(, RewriteTest, testing::ValuesIn(kRewrites),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(RewriteTest, Gives) {
  const auto& [name, step, statement, rewritten] = GetParam();
  EXPECT_EQ(step(statement), rewritten);
}

struct Kept {
  const char* name;
  Step step;
  std::vector<std::string> statements;
};

void PrintTo(const Kept& kept, std::ostream* out) { *out << kept.name; }

const std::vector<Kept> kKept = {
    {"QuoteBracketedNames",
     QuoteBracketedNames,
     {"SELECT '[a]', \"[b]\" FROM T -- [c]\n", "SELECT []", "SELECT [a", "SELECT [a\"b]"}},
    {"RewriteConcatenation",
     RewriteConcatenation,
     {"SELECT A + 1, B+C FROM T", "SELECT 'a + b', [c + 'd'] FROM T WHERE A='it''s + x'",
      "SELECT [a] + [b]", "SELECT /* don't */ 'a + ', B+1 /* 'c'+'d' */", "SELECT 'a' /* + 'b'"}},
    {"JoinExcludedSelects",
     JoinExcludedSelects,
     {"", "NOT IN", "SELECT a FROM t WHERE b NOT IN (1,2)",
      "SELECT a FROM t WHERE b IN (SELECT c FROM u)",
      "SELECT a FROM t WHERE b NOT IN (SELECT c FROM t)",
      "SELECT a FROM t WHERE b NOT IN (SELECT c FROM u WHERE d=1)",
      "SELECT a FROM t, v WHERE b NOT IN (SELECT c FROM u)",
      "SELECT a FROM t WHERE t.b NOT IN (SELECT c FROM u)",
      "SELECT a FROM t WHERE d=1 AND b NOT IN (SELECT c FROM u)",
      "SELECT ' FROM t WHERE b NOT IN (SELECT c FROM u)'",
      "SELECT a -- FROM t WHERE b NOT IN (SELECT c FROM u)",
      "SELECT a FROM t WHERE b NOT IN (SELECT c FROM u"}},
    {"FlattenJoins",
     FlattenJoins,
     {"SELECT x FROM A -- FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b\nWHERE x=1",
      // A table that the bracket doesn't see: the engine refuses it, and the chain would see it.
      "SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=A.b) ON B.i=A.b",
      // An inner join in the bracket drops rows that the chain would keep.
      "SELECT x FROM A LEFT JOIN (B INNER JOIN C ON C.i=B.c) ON B.i=A.b",
      // The condition isn't on the bracket's first table.
      "SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON C.i=A.b",
      "SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b AND B.j=1",
      "SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i<A.b",
      "SELECT x FROM A LEFT JOIN (SELECT 1) ON B.i=A.b",
      "SELECT 'FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c) ON B.i=A.b'",
      "SELECT x FROM A LEFT JOIN (B LEFT JOIN C ON C.i=B.c"}},
    {"OrderAsInAFile",
     OrderAsInAFile,
     {"", "SELECT 7", "SELECT now()", "SELECT MAX(a) FROM t", "SELECT COUNT(*) FROM t",
      "SELECT a FROM t LIMIT 1", "SELECT a FROM t ORDER BY a OFFSET 3", "SELECT a INTO u FROM t",
      "SELECT a FROM t ORDER BY a NULLS LAST", "SELECT a FROM t GROUP BY a",
      "SELECT a FROM t FOR UPDATE", "SELECT a FROM t; SELECT b FROM u",
      "DELETE FROM t WHERE a IN (SELECT a FROM u)", "INSERT INTO t SELECT a FROM u",
      "DECLARE c CURSOR FOR SELECT a FROM t"}},
    {"TakeFirstOfComparedSelects",
     TakeFirstOfComparedSelects,
     {"", ")", "SELECT a FROM t WHERE b IN (SELECT c FROM u)", "SELECT a FROM t WHERE b=(c)",
      "SELECT a FROM t WHERE b='=(SELECT c)'", "SELECT a FROM (SELECT b FROM u) AS t",
      "SELECT a FROM t WHERE b=(SELECT c FROM u LIMIT 1)", "SELECT a FROM t WHERE NOT (b=1)",
      "SELECT a FROM t -- =(SELECT b)"}},
    {"OrderUnionByColumns",
     OrderUnionByColumns,
     {"SELECT a.x FROM a ORDER BY a.x, 'UNION'",  // no union
      "SELECT a.x FROM a WHERE x IN (SELECT x FROM b UNION SELECT x FROM c) ORDER BY a.x",
      "SELECT a.x FROM a UNION SELECT b.x FROM b WHERE b.y='ORDER BY b.z'"}},
};

class KeptTest : public testing::TestWithParam<Kept> {};

INSTANTIATE_TEST_SUITE_P(, KeptTest, testing::ValuesIn(kKept),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(KeptTest, AsItIs) {
  const auto& [name, step, statements] = GetParam();
  for (const auto& statement : statements) EXPECT_EQ(step(statement), statement);
}

TEST(DialectTest, EngineIsKnownByWhatItsDriverCallsIt) {
  EXPECT_EQ(EngineNamed("SQLite"), Engine::Sqlite);
  EXPECT_EQ(EngineNamed("Microsoft SQL Server"), Engine::SqlServer);
  EXPECT_EQ(EngineNamed("PostgreSQL"), Engine::PostgreSql);
  EXPECT_EQ(EngineNamed("Otro"), Engine::Unknown);
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
    auto rows = engine.Run(FlattenJoins(original));
    std::sort(expected.begin(), expected.end());
    std::sort(rows.begin(), rows.end());
    ASSERT_EQ(rows, expected) << "round " << round;
  }
}

}  // namespace
}  // namespace quorvane::sqltext
