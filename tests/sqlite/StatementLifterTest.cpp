#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "adapters/sqlite/StatementLifter.h"

namespace quorvane::sqlite {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
       }) {
    EXPECT_TRUE(lifter.Lift(kept));
    EXPECT_EQ(lifter.Text(), kept);
    EXPECT_THAT(lifter.Values(), IsEmpty());
  }
}

TEST(StatementLifterTest, GoesOnBehindAnInnerSelect) {
  StatementLifter lifter;
  ASSERT_TRUE(lifter.Lift("SELECT A FROM T WHERE B IN (SELECT 5 FROM U WHERE C=6) AND D=7"));
  EXPECT_EQ(lifter.Text(), "SELECT A FROM T WHERE B IN (SELECT 5 FROM U WHERE C=?) AND D=?");
  EXPECT_THAT(lifter.Values(), ElementsAre(6, 7));
}

TEST(StatementLifterTest, RefusesWhatItCannotTell) {
  StatementLifter lifter;
  std::string longList = "SELECT A FROM T WHERE B IN (0";
  for (int i = 1; i <= 64; ++i) longList += "," + std::to_string(i);
  for (const auto& statement : std::vector<std::string>{
           "CREATE TABLE T (A varchar(5))", "PRAGMA cache_size=5", "BEGIN", "",
           "SELECT A FROM T WHERE B=?1 AND C=2", "SELECT A FROM T WHERE B=:x",
           "SELECT A FROM T -- 5", "SELECT A FROM T /* 5 */", "SELECT A FROM T; DELETE FROM T",
           "SELECT (SELECT 1 FROM U), 2 FROM T", "SELECT A FROM T WHERE CAST(B AS char(3))='1'",
           longList + ")", "SELECT A FROM T WHERE B='" + std::string(20000, 'x') + "'"})
    EXPECT_FALSE(lifter.Lift(statement)) << statement;
}

TEST(StatementLifterTest, TakesAListAsLongAsItAllows) {
  std::string list = "SELECT A FROM T WHERE B IN (0";
  for (int i = 1; i < 64; ++i) list += "," + std::to_string(i);
  StatementLifter lifter;
  ASSERT_TRUE(lifter.Lift(list + ")"));
  EXPECT_EQ(lifter.Values().size(), 64U);
}

TEST(StatementLifterTest, AnUnclosedTextReachesTheEngineAsItIs) {
  StatementLifter lifter;
  ASSERT_TRUE(lifter.Lift("SELECT A FROM T WHERE B='5"));
  EXPECT_EQ(lifter.Text(), "SELECT A FROM T WHERE B='5");
}

}  // namespace
}  // namespace quorvane::sqlite
