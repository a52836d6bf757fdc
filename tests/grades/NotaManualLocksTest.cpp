#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/Statements.h"

// Publication and locks: what keeps the users of the grade forms apart.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kInUse =
    "informacion \"Zendria Escuela\" \"En la sección y evaluación seleccionadas se están "
    "introduciendo notas. No puede acceder a estos datos.\"";
const std::string kNothing =
    "informacion \"Zendria Escuela\" \"No existen alumnos o materias para introducir notas\"";

std::vector<std::string> Locks(const GradeSchool& school) {
  return school.Rows(
      "SELECT CodProfesor, CodNumEvaluacion, CodMatDet, CodPublicacion FROM BloqueoPte ORDER BY "
      "CodMatDet");
}

std::vector<std::string> Publications(const GradeSchool& school) {
  return school.Rows("SELECT * FROM PublicacionPte");
}

TEST(NotaManualLocks, OpenFormHoldsItsPublicationAndOneLockForEachSubject) {
  const GradeSchool school;
  const auto result = RunScript(school, Open(), Tutor());
  EXPECT_EQ(result.status, 0) << result.Text();
  EXPECT_THAT(school.Rows("SELECT IDPublicacionPte, CodPropietario, CodNumEvaluacion FROM "
                          "PublicacionPte"),
              ElementsAre("1|2|1"));
  EXPECT_THAT(Locks(school), ElementsAre("1|1|3111|1", "1|1|3112|1", "1|1|3113|1"));
}

TEST(NotaManualLocks, UserOfProfileZeroWritesZeroInTheFirstPositionOfBothRows) {
  const GradeSchool school;
  const auto result = RunScript(school, Open(), Unrestricted());
  EXPECT_THAT(Traffic(result), Contains(Sql("INSERT INTO Publicacionpte  VALUES (1,0,1,4,1)")));
  EXPECT_THAT(Locks(school), ElementsAre("0|1|3111|1", "0|1|3112|1", "0|1|3113|1"));
}

TEST(NotaManualLocks, LeavingGivesEverythingBack) {
  const GradeSchool school;
  RunScript(school, Open() + "pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n", Tutor());
  EXPECT_THAT(Locks(school), IsEmpty());
  EXPECT_THAT(Publications(school), IsEmpty());
}

TEST(NotaManualLocks, TheWindowsCrossGivesEverythingBackAndEndsTheNode) {
  const GradeSchool school;
  const auto result = RunScript(school, Open() + "cerrar\n", Tutor());
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("124"));
  EXPECT_THAT(result.Of("muestra"), ElementsAre("frmNotaManual1", "frmNotaManual"));
  EXPECT_THAT(Locks(school), IsEmpty());
  EXPECT_THAT(Publications(school), IsEmpty());
}

TEST(NotaManualLocks, SecondUserSeesOnlyWhatTheFirstHasNotLocked) {
  const GradeSchool school;
  RunScript(school, Open(), Teacher());  // dies with his form open
  const auto result = RunScript(school, Open() + "ver\n", Tutor());
  const FormView form(result);
  // Student 3 has nothing but a locked subject, and vanishes from the list.
  EXPECT_THAT(form.Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||||Observación||", "Lengua (1º ESO)||||||0|2"));
  EXPECT_THAT(Locks(school), ElementsAre("1|1|3111|2", "2|1|3112|1", "2|1|3113|1"));
}

TEST(NotaManualLocks, NothingRemainsForTheSecondUser) {
  const GradeSchool school;
  RunScript(school, Open(), Tutor());
  const auto result = RunScript(school, Open() + "ver\n", Unrestricted());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNothing));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual1");
  EXPECT_THAT(Publications(school), Not(IsEmpty())) << "the first user's stays";
}

TEST(NotaManualLocks, LockHoldsForTheStudentsOfAnotherSection) {
  const GradeSchool school;
  school.Registra(331, 5);
  school.Evalua(school.Pendiente(5, 3111, 1), 1);
  const std::string otherSection =
      "nodo 124\nelegir cboCursos =33\nelegir cboSecciones =331\nelegir cboEvaluaciones =1\n"
      "pulsar cmdNotaManual1(0)\nver\n";
  EXPECT_EQ(FormView(RunScript(school, otherSection, Unrestricted())).Form(), "frmNotaManual");
  school.RemoveLocks();
  RunScript(school, Open(), Tutor());
  EXPECT_THAT(RunScript(school, otherSection, Unrestricted()).Of("mensaje"), ElementsAre(kNothing));
}

TEST(NotaManualLocks, LockHoldsForTheSameUserAndInItsOwnEvaluation) {
  const GradeSchool school;
  RunScript(school, Open(), Tutor());
  const auto again = RunScript(school, Open(), Tutor());
  EXPECT_THAT(again.Of("mensaje"), ElementsAre(kNothing));
  const auto other = RunScript(school, Open(2) + "ver\n", Tutor());
  EXPECT_THAT(other.Of("mensaje"), IsEmpty()) << "another evaluation";
  EXPECT_EQ(FormView(other).Form(), "frmNotaManual");
}

TEST(NotaManualLocks, SubjectLockedByAFormThatDiedStaysOutOfEveryLoad) {
  const GradeSchool school;
  school.Bloquea(9, 1, 3111, 77, 500);
  for (int i = 0; i < 2; ++i) {
    const auto result =
        RunScript(school, Open() + "pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n", Tutor());
    EXPECT_THAT(result.Text(), Not(::testing::HasSubstr("VALUES (1,1,3111")));
  }
  EXPECT_THAT(Locks(school), ElementsAre("9|1|3111|500"));
  school.Sql("DELETE FROM BloqueoPte WHERE CodPublicacion=500");
  const auto result = RunScript(school, Open() + "ver\n", Tutor());
  EXPECT_EQ(FormView(result).Entries("cboAlumnos").size(), 3U);
}

TEST(NotaManualLocks, LockTakenBetweenLoadAndLockStaysWithBoth) {
  const GradeSchool school;
  // Another user's lock on 3111 appears right when this form writes its publication.
  school.Sql(
      "CREATE TRIGGER carrera AFTER INSERT ON PublicacionPte BEGIN INSERT INTO BloqueoPte "
      "VALUES (2,1,3111,3,900); END");
  const auto result =
      RunScript(school, Open() + "pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n", Tutor());
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_THAT(Traffic(result), Not(Contains(Sql("INSERT INTO BloqueoPte  VALUES (1,1,3111,2,1)"))));
  EXPECT_THAT(Traffic(result), Contains(Sql("INSERT INTO BloqueoPte  VALUES (1,1,3112,2,1)")));
  EXPECT_THAT(Locks(school), ElementsAre("2|1|3111|900")) << "the other user's stays";
}

TEST(NotaManualLocks, OwnPublicationRefusesTheFormAndASecondMessageFollows) {
  const GradeSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7, 2, 321, 1)");
  const auto result = RunScript(school, Open() + "ver\npulsar cmdNotaManual1(1)\n", Tutor());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kInUse, kNothing));
  EXPECT_EQ(result.Of("pitido").size(), 2U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual1");
  const Role tutor{2, 1, 1, false, true, false};
  EXPECT_THAT(Traffic(result),
              ::testing::ElementsAreArray(StepOne(tutor, 1) + Lines{FormLoad(tutor, 1).front()} +
                                          Leave(tutor, 0)));
  EXPECT_EQ(Publications(school).size(), 1U) << "nothing of another publication is deleted";
}

TEST(NotaManualLocks, AnotherUsersPublicationIsNoObstacle) {
  const GradeSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7, 3, 321, 1)");
  const auto result = RunScript(school, Open() + "ver\n", Tutor());
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual");
  EXPECT_THAT(Traffic(result), Contains(Sql("INSERT INTO Publicacionpte  VALUES (8,1,2,4,1)")));
}

TEST(NotaManualLocks, FormWithoutSubjectsLocksNothing) {
  const GradeSchool school;
  school.Sql("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet<5");
  const auto result = RunScript(school, Open() + "ver\n", Tutor());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNothing));
  EXPECT_THAT(Traffic(result), Not(Contains(::testing::HasSubstr("INSERT INTO"))));
  EXPECT_EQ(FormView(result).Index("cboSecciones"), 0) << "step one keeps its choices";
  EXPECT_EQ(FormView(result).Index("cboEvaluaciones"), 0);
}

TEST(NotaManualLocks, HostForbidsSaving) {
  const GradeSchool school;
  const auto result =
      RunScript(school, "notasactivas 1\n" + Open() + "ver\npulsar cmdAceptar\n", Tutor());
  EXPECT_FALSE(FormView(result).Enabled("cmdAceptar"));
  EXPECT_TRUE(FormView(result).Enabled("cmdCancelar"));
  EXPECT_EQ(result.Of("rechazo").size(), 1U);
}

TEST(NotaManualLocks, SavingTouchesNeitherPublicationNorLocks) {
  const GradeSchool school;
  const auto result = RunScript(school, Open() + "pulsar cmdAceptar\n", Tutor());
  const auto saving = Traffic(result.After("pulsar cmdAceptar"));
  const auto leaves = Leave(Role{2, 1, 1, false, true, false}, 1);
  ASSERT_GE(saving.size(), leaves.size());
  for (std::size_t i = 0; i + leaves.size() < saving.size(); ++i)
    EXPECT_THAT(saving[i], Not(::testing::AnyOf(::testing::HasSubstr("PublicacionPte"),
                                                ::testing::HasSubstr("BloqueoPte"))));
}

}  // namespace
}  // namespace quorvane::test
