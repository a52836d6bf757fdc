// What somebody has hung on a school's tables: in a file, or on the server that the tests run
// beside.

#include <string>

#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/repair/SchoolRepair.h"
#include "tests/escuela/AnySchool.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

class StrangeTriggersTest : public testing::Test {
 protected:
  // On a server the next test takes the same database.
  void TearDown() override {
    school_.ForgetHistory();
    if (OnServer())
      school_.Sql(
          "DROP TRIGGER IF EXISTS ajeno ON PublicacionPte;"
          "DROP TRIGGER IF EXISTS Historial_EvaluacionPte_UPDATE ON Alumno;"
          "DROP FUNCTION IF EXISTS ajeno()");
  }

  /// One that refuses what is inserted.
  void Hang(const std::string& name, const std::string& table) const {
    school_.Sql(
        OnServer()
            ? "CREATE OR REPLACE FUNCTION ajeno() RETURNS trigger LANGUAGE plpgsql AS $ajeno$ "
              "BEGIN RAISE EXCEPTION 'no'; END $ajeno$; CREATE TRIGGER " +
                  name + " BEFORE INSERT ON " + table + " FOR EACH ROW EXECUTE FUNCTION ajeno()"
            : "CREATE TRIGGER " + name + " BEFORE INSERT ON " + table +
                  " BEGIN SELECT RAISE(ABORT,'no'); END");
  }
  [[nodiscard]] std::vector<std::string> Found() const {
    return SchoolCheck(school_.Db()).Strange();
  }

  AnySchool school_;
  GradeHistory history_{school_.Db()};
};

TEST_F(StrangeTriggersTest, OneThatRefusesIsFoundAndRepairLeavesIt) {
  EXPECT_THAT(Found(), IsEmpty());
  Hang("ajeno", "PublicacionPte");
  const std::string finding =
      "La tabla PublicacionPte tiene el disparador «ajeno», que no es de estos programas y puede "
      "impedir que se escriba en ella";
  EXPECT_THAT(Found(), ElementsAre(finding));
  EXPECT_THAT(Escuela("comprobar " + school_.Argument()),
              FieldsAre(1, AllOf(HasSubstr(finding + "\n"),
                                 EndsWith("\nApta para el módulo, con avisos\n"))));

  school_.Rest();
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  ASSERT_THAT(SchoolCheck(school_.Db()).Rows(), Not(IsEmpty()));
  EXPECT_GT(RepairSchool(school_.Address(), {.backedUp = true}).removed, 0U);
  EXPECT_THAT(SchoolCheck(school_.Db()).Rows(), IsEmpty());
  EXPECT_THAT(Found(), ElementsAre(finding));
}

TEST_F(StrangeTriggersTest, TheHistorysAreNone) {
  history_.Activate();
  EXPECT_THAT(Found(), IsEmpty());
  EXPECT_THAT(Escuela("comprobar " + school_.Argument()).text, Not(HasSubstr("disparador")));
  if (OnServer()) return;
  EXPECT_THAT(Escuela("comprobar --odbc 'Driver=SQLite3;Database=" + school_.Path() + "'").text,
              AllOf(HasSubstr("Apta para"), Not(HasSubstr("disparador"))));
}

TEST_F(StrangeTriggersTest, AHistorysNameOnAnotherTableHidesNone) {
  history_.Activate();
  if (!OnServer()) school_.Sql("DROP TRIGGER Historial_EvaluacionPte_UPDATE");
  Hang("Historial_EvaluacionPte_UPDATE", "Alumno");
  EXPECT_THAT(Found(), ElementsAre(HasSubstr("La tabla Alumno tiene el disparador «")));
}

TEST_F(StrangeTriggersTest, InAFileAHistorysNameWithAnotherTextHidesNone) {
  if (OnServer()) GTEST_SKIP() << "there a trigger is its owner's affair";
  history_.Activate();
  school_.Sql("DROP TRIGGER Historial_EvaluacionPte_INSERT");
  Hang("historial_evaluacionpte_insert", "EvaluacionPte");
  EXPECT_THAT(Found(), ElementsAre(HasSubstr("EvaluacionPte tiene el disparador")));
}

TEST_F(StrangeTriggersTest, OneOnATableOfNobodysIsNoAffairOfTheSchools) {
  if (OnServer()) GTEST_SKIP() << "the next test takes the same database";
  school_.Sql("CREATE TABLE Otra (A INTEGER)");
  Hang("ajeno", "Otra");
  EXPECT_THAT(Found(), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test
