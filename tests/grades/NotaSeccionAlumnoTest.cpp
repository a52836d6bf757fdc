#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryStatements.h"

// Entry by the students of a section: what the form shows and offers.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// The kinds of grade head their columns on the first load alone.
constexpr const char* kFirstHeading = "Materia|Nota|Concepto|Procedimiento|Actitud|Observación||";
constexpr const char* kLaterHeading = "Materia|Nota|Concepto|Procedimiento|Actitud|Observacion||";

TEST(NotaSeccionAlumno, DialogHasItsCaptions) {
  const GradeSchool school;
  const FormView form(RunScript(school, OpenSectionByStudent() + "ver\n", Tutor()));
  EXPECT_EQ(form.Form(), "frmNotaSeccionAlumno");
  EXPECT_EQ(form.Title(), "Introducción de notas. Paso 2 de 2");
  EXPECT_EQ(form.Text("lblNotaManual(0)"), "Alumno:");
  EXPECT_EQ(form.Text("fraNota(0)"), "Notas del Alumno:");
  EXPECT_EQ(form.Text("fraAniCarga"), "Cargando... Espere por favor");
  EXPECT_THAT(form.Tabs("tabNotaManual"), ElementsAre("Notas"));
  EXPECT_FALSE(form.Visible("fraNotaManual(1)") || form.Visible("fraAniCarga"));
  for (const auto* const control :
       {"cboAlumnos", "cmdAceptar", "cmdCancelar", "tabNotaManual", "cmdAnterior", "cmdSiguiente"})
    EXPECT_TRUE(form.Enabled(control) && form.Visible(control)) << control;
}

TEST(NotaSeccionAlumno, OnlyStudentsWhoHaveTheChosenSubjectStandInTheCombo) {
  const GradeSchool school;
  for (const auto& user : {Unrestricted(), Tutor()}) {
    school.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
    const FormView form(RunScript(school, OpenSectionByStudent() + "ver\n", user));
    EXPECT_THAT(form.Entries("cboAlumnos"),
                ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
    EXPECT_THAT(form.Cells("rtvNotasAlumno"),
                ElementsAre(kFirstHeading, "Lengua (1º ESO)||||||0|3111"));
  }
}

TEST(NotaSeccionAlumno, FixedHeadingsStandFromTheSecondStudentOn) {
  const GradeSchool school;
  const FormView form(
      RunScript(school, OpenSectionByStudent() + "pulsar cmdSiguiente\nver\n", Tutor()));
  EXPECT_EQ(form.Cells("rtvNotasAlumno").front(), kLaterHeading);
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0));
  EXPECT_EQ(form.FixedRows("rtvNotasAlumno"), 1);
}

TEST(NotaSeccionAlumno, CaptionOfTheObservationIsNotAskedForByItself) {
  const GradeSchool school;
  // The pane of the tutor finds no kind of grade of the observation.
  school.Sql("UPDATE TipoNota SET Abreviatura=-1 WHERE IDTipoNota=51");
  EXPECT_EQ(FormView(RunScript(school, OpenSectionByStudent() + "ver\n", Tutor()))
                .Text("lblNotaManual(1)"),
            "Observación:");
}

// The tutor's colleague gets more than was chosen.
TEST(NotaSeccionAlumno, TeacherSeesAllHisSubjectsOfTheShownStudent) {
  const GradeSchool school;
  const auto result = RunScript(
      school, OpenSectionByStudent(1, 3113) + "ver\npulsar cmdSiguiente\nver\n", Teacher());
  EXPECT_THAT(FormView(result).Entries("cboAlumnos"),
              ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1"));
  EXPECT_THAT(FormView(result, 1).Cells("rtvNotasAlumno"),
              ElementsAre(kFirstHeading, "Francés (1º ESO)||||||0|3113"));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(kLaterHeading, "Matemáticas (1º ESO)||||||0|3112"));
}

TEST(NotaSeccionAlumno, GradesAreShownAndEditsStayWhileTheStudentsChange) {
  const GradeSchool school;
  school.Sql(
      "UPDATE EvaluacionPte SET CodNota=105, CodNotaObservacion=202 WHERE CodAlumnoPte_MatDet=2");
  const auto result = RunScript(school,
                                OpenSectionByStudent() +
                                    "ver\neditar rtvNotasAlumno 1 1 \"7\"\n"
                                    "pulsar cmdSiguiente\npulsar cmdAnterior\nver\n",
                                Tutor());
  EXPECT_EQ(FormView(result, 1).Cells("rtvNotasAlumno").back(),
            "Lengua (1º ESO)|5||||Mejora|0|3111");
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(), "Lengua (1º ESO)|7||||Mejora|0|3111");
}

TEST(NotaSeccionAlumno, ListTakesTheSubjectAsItIsTaught) {
  const GradeSchool school;
  school.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota>102;"
      "UPDATE Nota SET CodMateria=2 WHERE IDNota=100; UPDATE Nota SET CodMateria=3111 WHERE "
      "IDNota=101; UPDATE Nota SET CodPersonal=2 WHERE IDNota=102");
  const auto result =
      RunScript(school, OpenSectionByStudent() + "lista rtvNotasAlumno 1 1\n", Tutor());
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"1\",101],[\"2\",102]]"));
}

// Step one doesn't offer such a subject, but a teacher gets it with the others that he has.
TEST(NotaSeccionAlumno, SubjectOfAnotherKindIsLoadedWithoutGradesAndGetsNoList) {
  const GradeSchool school;
  school.Evalua(school.Pendiente(3, 3116, 2), 1, 401);
  school.Profesor(2, 3116);
  const auto result = RunScript(school,
                                OpenSectionByStudent(1, 3113) +
                                    "ver\nlista rtvNotasAlumno 2 1\npulsar cmdAceptar\n"
                                    "pulsar cmdNotaManual1(1)\n",
                                Teacher());
  EXPECT_THAT(
      FormView(result).Cells("rtvNotasAlumno"),
      ElementsAre(kFirstHeading, "Francés (1º ESO)||||||0|3113", "Taller (1º ESO)||||||0|3116"));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[]"));
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("WHERE CodNumEvaluacion=1 AND "
                                                      "CodAlumnoPte_MatDet=6"))));
  EXPECT_EQ(school.Stored(6, 1), "0|0|0|0|0|-1|-1") << "saved as it was loaded: without a grade";
}

TEST(NotaSeccionAlumno, ValuesAreLeftOut) {
  const GradeSchool school;
  school.Evalua(school.Pendiente(3, 3115, 2), 1);
  school.Profesor(2, 3115);
  const FormView form(RunScript(school, OpenSectionByStudent(1, 3113) + "ver\n", Teacher()));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre(kFirstHeading, "Francés (1º ESO)||||||0|3113"));
}

TEST(NotaSeccionAlumno, SavingGoesBackToItsStepOne) {
  const GradeSchool school;
  const auto result = RunScript(school,
                                OpenSectionByStudent() +
                                    "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdAceptar\nver\n"
                                    "pulsar cmdNotaManual1(1)\n",
                                Tutor());
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionAlumno1");
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("127"));
  EXPECT_EQ(school.Stored(2, 1), "107|0|0|0|0|-1|-1");
  EXPECT_EQ(school.Stored(1, 1), "0|0|0|0|0|0|0");
}

// The box shows once the section is chosen again with an evaluation chosen.
class NotaSeccionAlumnoRecovery : public ::testing::Test {
 protected:
  NotaSeccionAlumnoRecovery() {
    school_.Sql(
        "UPDATE SistemaCalificacion SET Recuperaciones=-1 WHERE IDSistemaCalificacion=1;"
        "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321;"
        "UPDATE EvaluacionPte SET CodNota=107, CodNotaObservacion=201");
  }

  ScriptResult Run(const std::string& gestures) const {
    return RunScript(school_,
                     OpenSectionByStudent(1, 3111,
                                          "elegir cboSecciones =321\nelegir cboEvaluaciones =1\n"
                                          "elegir cboMateria =3111\nmarcar chkRecuperacion 1\n") +
                         gestures,
                     Tutor());
  }

  GradeSchool school_;
};

TEST_F(NotaSeccionAlumnoRecovery, ShowsNoGrades) {
  const auto result = Run("ver\n");
  EXPECT_THAT(result.Of("rechazo"), IsEmpty());
  const FormView form(result);
  EXPECT_EQ(form.Form(), "frmNotaSeccionAlumno");
  EXPECT_EQ(form.Cells("rtvNotasAlumno").back(), "Lengua (1º ESO)||||||0|3111");
}

TEST_F(NotaSeccionAlumnoRecovery, EndOfAnEditIsAMissingMember) {
  const auto result = Run("editar rtvNotasAlumno 1 1 \"3\"\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("438 ")));
}

TEST_F(NotaSeccionAlumnoRecovery, SavingWritesNothingAndClosesTheForm) {
  const auto before = school_.Modulo();
  const auto result = Run("pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n");
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("127"));
  EXPECT_EQ(Traffic(result.After("pulsar cmdAceptar")), Leave(kTutor, 1));
  EXPECT_EQ(school_.Modulo(), before);
}

}  // namespace
}  // namespace quorvane::test
