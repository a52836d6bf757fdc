#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryStatements.h"

// Entry by subject: what the form shows and offers.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kHeading = "Orden en Sección / Alumno|Nota||||Observación|";

TEST(NotaMateria, DialogHasItsCaptions) {
  const GradeSchool school;
  const FormView form(RunScript(school, OpenBySubject() + "ver\n", Tutor()));
  EXPECT_EQ(form.Form(), "frmNotaMateria");
  EXPECT_EQ(form.Title(), "Introducción de notas. Paso 2 de 2");
  EXPECT_EQ(form.Text("lblNotaManual(0)"), "Materias y objetivos:");
  EXPECT_EQ(form.Text("lblNotaManual(1)"), "Observación del tutor");
  EXPECT_EQ(form.Text("cmdAnterior"), "<");
  EXPECT_EQ(form.Text("cmdSiguiente"), ">");
  EXPECT_EQ(form.Text("cmdAceptar"), "Aceptar");
  EXPECT_EQ(form.Text("cmdCancelar"), "Cancelar");
  EXPECT_EQ(form.Text("fraNota(0)"), "Notas del Alumno:");
  EXPECT_EQ(form.Text("fraAniCarga"), "Cargando Datos...");
  EXPECT_THAT(form.Tabs("tabNotaManual"), ElementsAre("Notas"));
  EXPECT_FALSE(form.Visible("fraNotaManual(1)") || form.Visible("fraAniCarga"));
  for (const auto* const control :
       {"cboMaterias", "cmdAceptar", "cmdCancelar", "tabNotaManual", "cmdAnterior", "cmdSiguiente"})
    EXPECT_TRUE(form.Enabled(control) && form.Visible(control)) << control;
}

TEST(NotaMateria, SubjectsAreGatheredInTheOrderInWhichTheStudentsBringThem) {
  const GradeSchool school;
  const FormView form(RunScript(school, OpenBySubject() + "ver\n", Tutor()));
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Lengua (1º ESO)=2", "Matemáticas (1º ESO)=3"));
  EXPECT_EQ(form.Index("cboMaterias"), 0);
}

TEST(NotaMateria, RowsChangeFromSubjectToSubject) {
  const GradeSchool school;
  school.Sql(
      "UPDATE EvaluacionPte SET CodNota=107, CodNotaObservacion=201 WHERE CodAlumnoPte_MatDet=3 "
      "AND CodNumEvaluacion=1");
  const auto result = RunScript(
      school, OpenBySubject() + "ver\npulsar cmdSiguiente\nver\npulsar cmdSiguiente\nver\n",
      Tutor());
  EXPECT_THAT(FormView(result, 2).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "1   Abad Rey, Jorge||||||3"));
  EXPECT_THAT(
      FormView(result, 1).Cells("rtvNotasAlumno"),
      ElementsAre(kHeading, "2   Díaz Cano, Marta||||||1", "3   Ñúñez Sanz, Íñigo|7||||Trabaja|2"));
  const FormView last(result);
  EXPECT_THAT(last.Cells("rtvNotasAlumno"), ElementsAre(kHeading, "2   Díaz Cano, Marta||||||1"));
  EXPECT_THAT(last.Widths("rtvNotasAlumno"), ElementsAre(3000, 2000, 0, 0, 0, 2000, 0));
  EXPECT_EQ(last.FixedRows("rtvNotasAlumno"), 1);
}

// The same subject as taught in another section is another subject.
TEST(NotaMateria, StudentStandsOnEachSubjectThatHeHasAndOnNoOther) {
  const GradeSchool school;
  school.Sql("UPDATE AlumnoPte_MatDet SET CodMatDet=3121 WHERE IDAlumnoPte_MatDet=3");
  const auto result = RunScript(school,
                                OpenBySubject() +
                                    "elegir cboMaterias #1\nver\n"
                                    "elegir cboMaterias #3\nver\n",
                                Tutor());
  EXPECT_THAT(FormView(result).Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Lengua (1º ESO)=2", "Matemáticas (1º ESO)=3",
                          "Lengua (1º ESO)=4"));
  EXPECT_THAT(FormView(result, 1).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "2   Díaz Cano, Marta||||||1"));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "3   Ñúñez Sanz, Íñigo||||||2"));
}

TEST(NotaMateria, OrderOfOneDigitHasThreeBlanksBehindItAndOfTwoDigitsOne) {
  const GradeSchool school;
  school.Sql(
      "UPDATE Alumno SET OrdenSeccion=9 WHERE IDAlumno=1;"
      "UPDATE Alumno SET OrdenSeccion=10 WHERE IDAlumno=2");
  const FormView form(RunScript(school, OpenBySubject() + "pulsar cmdSiguiente\nver\n", Tutor()));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "9   Díaz Cano, Marta||||||1", "10 Ñúñez Sanz, Íñigo||||||2"));
}

TEST(NotaMateria, ArrowsAndButtonsWalkTheSubjectsAndStopAtTheEnds) {
  const GradeSchool school;
  const auto index = [&school](const std::string& gestures) {
    school.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
    return FormView(RunScript(school, OpenBySubject() + gestures + "ver\n", Tutor()))
        .Index("cboMaterias");
  };
  EXPECT_EQ(index("pulsar cmdAnterior\n"), 0);
  EXPECT_EQ(index("tecla 40\ntecla 40\ntecla 40\n"), 2);
  EXPECT_EQ(index("pulsar cmdSiguiente\npulsar cmdSiguiente\ntecla 38\n"), 1);
}

TEST(NotaMateria, EditedGradesStayWhileTheSubjectsChange) {
  const GradeSchool school;
  const auto result = RunScript(school,
                                OpenBySubject() +
                                    "editar rtvNotasAlumno 1 1 \"7\"\n"
                                    "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
                                    "pulsar cmdSiguiente\npulsar cmdAnterior\nver\n",
                                Tutor());
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "1   Abad Rey, Jorge|7||||Mejora|3"));
}

TEST(NotaMateria, BlankEntryAndNoEntryTakeTheGradeAway) {
  const GradeSchool school;
  school.Sql("UPDATE EvaluacionPte SET CodNota=107, CodNotaObservacion=201");
  const auto result = RunScript(school,
                                OpenBySubject() +
                                    "editar rtvNotasAlumno 1 1 #0\n"
                                    "editar rtvNotasAlumno 1 5 nada\n"
                                    "pulsar cmdSiguiente\npulsar cmdAnterior\nver\n",
                                Tutor());
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "1   Abad Rey, Jorge||||||3"));
}

TEST(NotaMateria, ListTakesTheSubjectAsItIsTaughtAndItsTeachers) {
  const GradeSchool school;
  school.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota>103;"
      "UPDATE MateriaDetalles SET CodPersonalAsociado=3 WHERE IDMateriaDetalles=3113;"
      "UPDATE Nota SET CodPersonal=2 WHERE IDNota=100; UPDATE Nota SET CodPersonal=3 WHERE "
      "IDNota=101; UPDATE Nota SET CodMateria=3113 WHERE IDNota=102;"
      "UPDATE Nota SET CodMateria=4 WHERE IDNota=103");
  const auto result = RunScript(school, OpenBySubject() + "lista rtvNotasAlumno 1 1\n", Tutor());
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"1\",101],[\"2\",102]]"));
}

TEST(NotaMateria, HeadingNamesKeysAndColumnsWithoutWidthOfferNothing) {
  const GradeSchool school;
  const auto result = RunScript(school,
                                OpenBySubject() +
                                    "lista rtvNotasAlumno 0 1\nlista rtvNotasAlumno 1 0\n"
                                    "lista rtvNotasAlumno 1 2\nlista rtvNotasAlumno 1 6\n",
                                Tutor());
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("SELECT IDNota, DescripcionCorta FROM Nota "
                                                      "WHERE NotaExcepcional"))));
}

TEST(NotaMateria, ColumnThatWasWidenedForItsListStaysSoForTheNextSubject) {
  const GradeSchool school;
  const auto result = RunScript(school,
                                OpenBySubject(1, "marcar chkMostrar 1\n") +
                                    "editar rtvNotasAlumno 1 5 \"Trabaja\"\n"
                                    "pulsar cmdSiguiente\nver\n",
                                Tutor());
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(3000, 2000, 0, 0, 0, (7 + 12) * 120, 0));
}

TEST(NotaMateria, TutorsPaneIsFilledByAnEditAndForTheTutorAlone) {
  const GradeSchool school;
  const auto entries = [&school](const ScriptOptions& user, const std::string& gestures) {
    school.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
    return FormView(RunScript(school, OpenBySubject() + gestures + "ver\n", user))
        .Entries("cboObservacion");
  };
  const std::string edit = "editar rtvNotasAlumno 1 1 #0\n";
  EXPECT_THAT(entries(Tutor(), ""), IsEmpty());
  EXPECT_THAT(entries(Tutor(), edit), ElementsAre(" =0", "Sigue así=501"));
  EXPECT_THAT(entries(Unrestricted(), edit), ElementsAre(" =0", "Sigue así=501"));
  EXPECT_THAT(entries(Teacher(), edit), IsEmpty());
}

TEST(NotaMateria, TutorsGridIsHeadedByTheStudentUntilAnEdit) {
  const GradeSchool school;
  const auto result =
      RunScript(school, OpenBySubject() + "ver\neditar rtvNotasAlumno 1 1 #0\nver\n", Tutor());
  EXPECT_THAT(FormView(result, 1).Cells("rtvNotasTutor"), ElementsAre("Alumno|Nota|Actitud"));
  EXPECT_THAT(FormView(result).Cells("rtvNotasTutor"),
              ElementsAre("Valores y actitudes|Valores|Taller|"));
}

TEST(NotaMateria, TeacherSeesHisOwnSubjectsAndStudents) {
  const GradeSchool school;
  const FormView form(RunScript(school, OpenBySubject() + "ver\n", Teacher()));
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Matemáticas (1º ESO)=2"));
}

TEST(NotaMateria, StudentWithoutASubjectHereIsNowhere) {
  const GradeSchool school;
  const FormView form(RunScript(school, OpenBySubject(2) + "ver\n", Tutor()));
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Lengua (1º ESO)=1", "Matemáticas (1º ESO)=2"));
}

TEST(NotaMateria, ClosedSchoolYearCanBeReadAndNotSaved) {
  const GradeSchool school;
  auto closed = Tutor();
  closed.activa = false;
  const FormView form(RunScript(school, OpenBySubject() + "ver\n", closed));
  EXPECT_FALSE(form.Enabled("cmdAceptar"));
  EXPECT_TRUE(form.Enabled("cboMaterias") && form.Enabled("cmdCancelar"));
}

TEST(NotaMateria, HostIsNotAskedWhetherGradesAreActive) {
  const GradeSchool school;
  const auto result = RunScript(school, "notasactivas 1\n" + OpenBySubject() + "ver\n", Tutor());
  EXPECT_THAT(result.Of("host"), Not(Contains("ZendriaApi.cCentroApi.notasactivas")));
  EXPECT_TRUE(FormView(result).Enabled("cmdAceptar"));
}

TEST(NotaMateria, CancelWritesNothingAndGoesBackToItsStepOne) {
  const GradeSchool school;
  const auto before = school.Modulo();
  const auto result = RunScript(school,
                                OpenBySubject() +
                                    "editar rtvNotasAlumno 1 1 =107\npulsar cmdCancelar\nver\n"
                                    "pulsar cmdNotaManual1(1)\n",
                                Tutor());
  EXPECT_EQ(FormView(result).Form(), "frmNotaMateria1");
  EXPECT_EQ(FormView(result).Index("cboEvaluaciones"), 0);
  EXPECT_EQ(school.Modulo(), before);
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("125"));
}

}  // namespace
}  // namespace quorvane::test
