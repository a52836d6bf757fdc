#include <chrono>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <sqlite3.h>
#include <string>
#include <vector>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/StatementCache.h"
#include "adapters/sqlite/StatementLifter.h"
#include "adapters/sqlite/StatementShape.h"

namespace quorvane::sqlite {
namespace {

struct Case {
  std::string statement;
  std::string lifted;
  std::vector<std::int64_t> values;
};

TEST(StatementLifterTest, LiftsTheIntegersThatAreValues) {
  const std::vector<Case> cases{
      {"SELECT Orden FROM Curso WHERE IDCurso=12", "SELECT Orden FROM Curso WHERE IDCurso=?", {12}},
      {"INSERT INTO Profesor_Pte VALUES (3,45)", "INSERT INTO Profesor_Pte VALUES (?,?)", {3, 45}},
      {"UPDATE T SET A=-1 ,B=0 WHERE C<>7", "UPDATE T SET A=-? ,B=? WHERE C<>?", {1, 0, 7}},
      {" delete from T where A in (1,2)", " delete from T where A in (?,?)", {1, 2}},
      {"SELECT A FROM T WHERE B=999999999999999999",
       "SELECT A FROM T WHERE B=?",
       {999999999999999999}},
      {"SELECT A FROM T WHERE B IN (SELECT 5 FROM U WHERE C=6) AND D=7",
       "SELECT A FROM T WHERE B IN (SELECT 5 FROM U WHERE C=?) AND D=?",
       {6, 7}},
  };
  StatementLifter lifter;
  for (const auto& one : cases) {
    EXPECT_TRUE(lifter.Lift(one.statement)) << one.statement;
    EXPECT_EQ(lifter.Text(), one.lifted);
    EXPECT_EQ(lifter.Values(), one.values);
  }
}

TEST(StatementLifterTest, LeavesWhatIsNoValueInTheText) {
  StatementLifter lifter;
  for (const std::string kept : {
           "SELECT 1 FROM T",                               // names a column
           "SELECT A FROM T ORDER BY 1",                    // counts columns
           "SELECT A FROM T GROUP BY 2 HAVING COUNT(*)>1",  // behind what counts columns
           "SELECT A FROM T WHERE B='12' AND C='it''s 5'",
           "SELECT A FROM [Tabla 1] WHERE \"x 2\"=`y 3`",
           "SELECT Apellido_1 FROM T2 WHERE T2.A1=T3.B1",
           "SELECT A FROM T WHERE B=1.5 OR B=1e5 OR B=0x1F OR B=.25",
           "SELECT A FROM T WHERE B=1.5e-3 OR B=2E+1 OR B=.5e-1 OR B=3. OR B=1e-",
           "SELECT A FROM T WHERE B=9223372036854775808",  // a real to the engine
           "SELECT A FROM T WHERE B='5",  // unclosed, and so for the engine to refuse
       }) {
    EXPECT_TRUE(lifter.Lift(kept));
    EXPECT_EQ(lifter.Text(), kept);
    EXPECT_THAT(lifter.Values(), testing::IsEmpty());
  }
}

/// With a list of so many numbers.
std::string ListOf(int count) {
  std::string statement = "SELECT A FROM T WHERE B IN (0";
  for (int i = 1; i < count; ++i) statement += "," + std::to_string(i);
  return statement + ")";
}

TEST(StatementLifterTest, RefusesWhatItCannotTell) {
  StatementLifter lifter;
  for (const auto& statement : std::vector<std::string>{
           "CREATE TABLE T (A varchar(5))", "PRAGMA cache_size=5", "BEGIN", "",
           "SELECT A FROM T WHERE B=?1 AND C=2", "SELECT A FROM T WHERE B=:x",
           "SELECT A FROM T -- 5", "SELECT A FROM T /* 5 */", "SELECT A FROM T; DELETE FROM T",
           "SELECT (SELECT 1 FROM U), 2 FROM T", "SELECT A FROM T WHERE CAST(B AS char(3))='1'",
           ListOf(65), "SELECT A FROM T WHERE B='" + std::string(20000, 'x') + "'"})
    EXPECT_FALSE(lifter.Lift(statement)) << statement;
}

TEST(StatementLifterTest, TakesAListAsLongAsItAllows) {
  StatementLifter lifter;
  ASSERT_TRUE(lifter.Lift(ListOf(64)));
  EXPECT_EQ(lifter.Values().size(), 64U);
}

using Values = std::vector<std::int64_t>;

StatementShape ShapeOf(const std::string& statement) {
  StatementLifter lifter;
  EXPECT_TRUE(lifter.Lift(statement)) << statement;
  return lifter.Shape();
}

TEST(StatementShapeTest, GivesTheValuesOfAStatementThatDiffersInItsNumbers) {
  const auto shape = ShapeOf("SELECT Nombre FROM Alumno WHERE IDAlumno=1 AND CodSeccion IN (2,30)");
  Values values;
  ASSERT_TRUE(shape.Fits("SELECT Nombre FROM Alumno WHERE IDAlumno=12345 AND CodSeccion IN (0,007)",
                         values));
  EXPECT_EQ(values, (Values{12345, 0, 7}));
}

TEST(StatementShapeTest, RefusesEveryOtherText) {
  const auto shape = ShapeOf("SELECT a FROM t WHERE b=1 AND c=2 ");
  for (const auto* const other :
       {"", "SELECT a FROM t", "SELECT a FROM t WHERE b=", "SELECT a FROM t WHERE b=x AND c=2 ",
        "SELECT a FROM t WHERE b=1 AND c=2", "SELECT a FROM t WHERE b=1 AND c=2  ",
        "SELECT a FROM t WHERE b=1.5 AND c=2 ", "SELECT a FROM t WHERE b=1e3 AND c=2 ",
        "SELECT a FROM t WHERE b=1 AND c=2x ", "SELECT a FROM u WHERE b=1 AND c=2 ",
        "SELECT a FROM t WHERE b=-1 AND c=2 ",
        "SELECT a FROM t WHERE b=1234567890123456789 AND c=2 "}) {
    Values values;
    EXPECT_FALSE(shape.Fits(other, values)) << other;
  }
}

TEST(StatementShapeTest, TakesAQuestionMarkInATextForWhatItIs) {
  const auto shape = ShapeOf("SELECT a FROM t WHERE b='?' AND c=2");
  Values values;
  EXPECT_TRUE(shape.Fits("SELECT a FROM t WHERE b='?' AND c=3", values));
  EXPECT_EQ(values, Values{3});
  EXPECT_FALSE(shape.Fits("SELECT a FROM t WHERE b='4' AND c=3", values));
}

TEST(StatementShapeTest, FitsWhateverLiftsToItAndNothingElse) {
  std::ifstream file(QUORVANE_STATEMENTS);
  std::vector<std::string> statements;
  const std::regex placeholder(R"(\{[a-z]\})");
  for (std::string line; std::getline(file, line);) {
    line = std::regex_replace(line, placeholder, std::to_string(statements.size()));
    if (StatementLifter lifter; lifter.Lift(line)) statements.push_back(line);
  }
  ASSERT_GT(statements.size(), 50U);
  for (const auto& one : statements) {
    const auto shape = ShapeOf(one);
    for (const auto& other : statements) {
      StatementLifter lifter;
      lifter.Lift(other);
      Values values;
      const auto fits = shape.Fits(other, values);
      EXPECT_EQ(fits, lifter.Text() == shape.Text()) << one << "\n" << other;
      if (fits) {
        EXPECT_EQ(values, lifter.Values());
      }
    }
  }
}

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
