#include "tests/grades/OrdinaryForms.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// Publication and locks: what keeps the users of the grade forms apart.

namespace quorvane::test {
namespace {

class NotaManualLocksTest : public OneFormTest<kByStudent> {
 protected:
  [[nodiscard]] Lines Locks() const {
    return school_.Rows(
        "SELECT CodProfesor, CodNumEvaluacion, CodMatDet, CodPublicacion FROM BloqueoPte ORDER BY "
        "CodMatDet");
  }
  [[nodiscard]] Lines Publications() const { return school_.Rows("SELECT * FROM PublicacionPte"); }
};

TEST_F(NotaManualLocksTest, OpenFormHoldsItsPublicationAndOneLockForEachSubject) {
  const auto result = Play();
  EXPECT_EQ(result.status, 0) << result.Text();
  EXPECT_THAT(school_.Rows("SELECT IDPublicacionPte, CodPropietario, CodNumEvaluacion FROM "
                           "PublicacionPte"),
              ElementsAre("1|2|1"));
  EXPECT_THAT(Locks(), ElementsAre("1|1|3111|1", "1|1|3112|1", "1|1|3113|1"));
}

TEST_F(NotaManualLocksTest, UserOfProfileZeroWritesZeroInTheFirstPositionOfBothRows) {
  const auto result = Play({}, Unrestricted());
  EXPECT_THAT(Traffic(result), Contains(Sql(expected::kPublish, {1, 0, 1, 1})));
  EXPECT_THAT(Locks(), ElementsAre("0|1|3111|1", "0|1|3112|1", "0|1|3113|1"));
}

TEST_F(NotaManualLocksTest, LeavingGivesEverythingBack) {
  Play("pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n");
  EXPECT_THAT(Locks(), IsEmpty());
  EXPECT_THAT(Publications(), IsEmpty());
}

TEST_F(NotaManualLocksTest, TheWindowsCrossPressesCancelarAndStepOneComesBackWithItsChoices) {
  const auto result = Play("cerrar\nver\ncerrar\n");
  EXPECT_THAT(result.Of("muestra"),
              ElementsAre("frmNotaManual1", "frmNotaManual", "frmNotaManual1"));
  EXPECT_EQ(FormView(result).Index("cboEvaluaciones"), 0);
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("124"));
  EXPECT_THAT(Locks(), IsEmpty());
  EXPECT_THAT(Publications(), IsEmpty());
}

TEST_F(NotaManualLocksTest, SecondUserSeesOnlyWhatTheFirstHasNotLocked) {
  Play({}, Teacher());  // dies with his form open
  const auto result = Play("ver\n");
  const FormView form(result);
  // Student 3 has nothing but a locked subject, and vanishes from the list.
  EXPECT_THAT(form.Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||||Observación||", "Lengua (1º ESO)||||||0|2"));
  EXPECT_THAT(Locks(), ElementsAre("1|1|3111|2", "2|1|3112|1", "2|1|3113|1"));
}

TEST_F(NotaManualLocksTest, NothingRemainsForTheSecondUser) {
  Play();
  const auto result = Play("ver\n", Unrestricted());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual1");
  EXPECT_THAT(Publications(), Not(IsEmpty())) << "the first user's stays";
}

TEST_F(NotaManualLocksTest, LockHoldsForTheStudentsOfAnotherSection) {
  school_.Registra(331, 5);
  school_.Evalua(school_.Pendiente(5, 3111, 1), 1);
  const std::string otherSection =
      "nodo 124\nelegir cboCursos =33\nelegir cboSecciones =331\nelegir cboEvaluaciones =1\n"
      "pulsar cmdNotaManual1(0)\nver\n";
  EXPECT_EQ(FormView(RunScript(school_, otherSection, Unrestricted())).Form(), "frmNotaManual");
  school_.RemoveLocks();
  Play();
  EXPECT_THAT(RunScript(school_, otherSection, Unrestricted()).Of("mensaje"),
              ElementsAre(form_.NothingToGrade()));
}

TEST_F(NotaManualLocksTest, LockHoldsForTheSameUserAndInItsOwnEvaluation) {
  Play();
  const auto again = Play();
  EXPECT_THAT(again.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  const auto other = RunScript(school_, form_.Open(2) + "ver\n", Tutor());
  EXPECT_THAT(other.Of("mensaje"), IsEmpty()) << "another evaluation";
  EXPECT_EQ(FormView(other).Form(), "frmNotaManual");
}

TEST_F(NotaManualLocksTest, SubjectLockedByAFormThatDiedStaysOutOfEveryLoad) {
  school_.Bloquea(9, 1, 3111, 77, 500);
  for (int i = 0; i < 2; ++i) {
    const auto result = Play("pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n");
    EXPECT_THAT(result.Text(), Not(HasSubstr("VALUES (1,1,3111")));
  }
  EXPECT_THAT(Locks(), ElementsAre("9|1|3111|500"));
  school_.Sql("DELETE FROM BloqueoPte WHERE CodPublicacion=500");
  const auto result = Play("ver\n");
  EXPECT_EQ(FormView(result).Entries("cboAlumnos").size(), 3U);
}

TEST_F(NotaManualLocksTest, LockTakenBetweenLoadAndLockStaysWithBoth) {
  // Another user's lock on 3111 appears right when this form writes its publication.
  school_.Sql(
      "CREATE TRIGGER carrera AFTER INSERT ON PublicacionPte BEGIN INSERT INTO BloqueoPte "
      "VALUES (2,1,3111,3,900); END");
  const auto result = Play("pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n");
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_THAT(Traffic(result), Not(Contains(Sql(expected::kLock, {1, 1, 3111, 2, 1}))));
  EXPECT_THAT(Traffic(result), Contains(Sql(expected::kLock, {1, 1, 3112, 2, 1})));
  EXPECT_THAT(Locks(), ElementsAre("2|1|3111|900")) << "the other user's stays";
}

TEST_F(NotaManualLocksTest, SavingTouchesNeitherPublicationNorLocks) {
  const auto result = Play("pulsar cmdAceptar\n");
  const auto saving = Traffic(result.After("pulsar cmdAceptar"));
  const auto leaves = Leave(kTutor, 1);
  ASSERT_GE(saving.size(), leaves.size());
  for (std::size_t i = 0; i + leaves.size() < saving.size(); ++i)
    EXPECT_THAT(saving[i],
                Not(::testing::AnyOf(HasSubstr("PublicacionPte"), HasSubstr("BloqueoPte"))));
}

}  // namespace
}  // namespace quorvane::test
