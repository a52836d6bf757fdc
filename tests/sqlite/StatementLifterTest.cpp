#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "adapters/sqlite/StatementLifter.h"

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

}  // namespace
}  // namespace quorvane::sqlite
