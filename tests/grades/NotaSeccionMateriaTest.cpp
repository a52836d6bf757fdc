#include "tests/grades/OrdinaryForms.h"
#include "tests/support/Matchers.h"

// Entry by the subjects of a student of a section: what the form shows, offers and refuses.

namespace quorvane::test {
namespace {

constexpr const char* kSectionHeading = "Orden en Sección / Alumno|Nota||||Observación|";
using NotaSeccionMateriaTest = OneFormTest<kSectionBySubject>;

// Its caption is the kind's name; the pane of the tutor then puts that of the kind of grade.
TEST_F(NotaSeccionMateriaTest, CaptionOfTheObservationComesFromTheKindOfSubject) {
  const auto caption = [this](const ScriptOptions& user) {
    return Shown({}, user).Text("lblNotaManual(1)");
  };
  EXPECT_EQ(caption(Teacher()), "Observaciones");
  EXPECT_EQ(caption(Tutor()), "Observación del tutor");
  school_.Sql("DELETE FROM TipoMateria WHERE IDTipoMateria=50");
  EXPECT_EQ(caption(Teacher()), "Observación:");
}

TEST_F(NotaSeccionMateriaTest, SubjectsOfTheStudentStandInTheirOrder) {
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=107 WHERE CodAlumnoPte_MatDet=1 AND CodNumEvaluacion=1");
  const auto result = Play("ver\npulsar cmdSiguiente\nver\n");
  const FormView form(result);
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Lengua (1º ESO)=1", "Matemáticas (1º ESO)=2"));
  EXPECT_THAT(FormView(result, 1).Cells("rtvNotasAlumno"),
              ElementsAre(kSectionHeading, "2   Díaz Cano, Marta||||||1"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre(kSectionHeading, "2   Díaz Cano, Marta|7|||||1"));
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(3000, 2000, 0, 0, 0, 2000, 0));
}

TEST_F(NotaSeccionMateriaTest, StudentWhoHasLeftMeanwhileIsStillLoaded) {
  const auto result =
      RunScript(school_,
                form_.Open(1,
                           "sql \"UPDATE Alumno SET FechaBaja='01/02/2026', Anticipado=-1, "
                           "OrdenSeccion=12 WHERE IDAlumno=1\"\n") +
                    "ver\n",
                Tutor());
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(kSectionHeading, "12 Díaz Cano, Marta||||||1"));
}

TEST_F(NotaSeccionMateriaTest, SubjectThatTheUserMayNotSeeIsNotOffered) {
  const auto form = Shown({}, Teacher());
  EXPECT_THAT(form.Entries("cboMaterias"), ElementsAre("Matemáticas (1º ESO)=1"));
}

TEST_F(NotaSeccionMateriaTest, WhenNoSubjectRemainsTheFormClosesWithItsMessage) {
  const auto result = RunScript(
      school_, form_.Open(1, "sql \"INSERT INTO BloqueoPte VALUES (1,1,3112,2,9)\"\n") + "ver\n",
      Teacher());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
  EXPECT_THAT(school_.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
}

TEST_F(NotaSeccionMateriaTest, SubjectOfAnotherKindStopsTheLoadAtAFieldThatIsNotThere) {
  school_.Evalua(school_.Pendiente(1, 3116, 3), 1, 402);
  const auto result = Play();
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3265 ")));
  EXPECT_THAT(school_.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
}

TEST_F(NotaSeccionMateriaTest, SavingGoesBackToItsStepOneAndWritesThisStudentAlone) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=107 WHERE CodAlumnoPte_MatDet=3");
  const auto result = Play(
      "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdSiguiente\n"
      "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
      "pulsar cmdAceptar\nver\npulsar cmdNotaManual1(1)\n");
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("126"));
  EXPECT_EQ(school_.Stored(2, 1), "107|0|0|0|0|-1|-1");
  EXPECT_EQ(school_.Stored(1, 1), "0|0|0|0|202|0|0");
  EXPECT_EQ(school_.Stored(3, 1), "107|0|0|0|0|0|0");
}

// The box is hidden from the start and nothing ever shows it.
TEST_F(NotaSeccionMateriaTest, RecoveryCannotBeAskedForInStepOne) {
  school_.Sql(
      "UPDATE SistemaCalificacion SET Recuperaciones=-1 WHERE IDSistemaCalificacion=1;"
      "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321");
  const auto result = RunScript(school_,
                                form_.Open(1,
                                           "elegir cboSecciones =321\nelegir cboEvaluaciones =1\n"
                                           "elegir cboAlumno =1\nmarcar chkRecuperacion 1\n"),
                                Tutor());
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("marcar chkRecuperacion 1")));
}

}  // namespace
}  // namespace quorvane::test
