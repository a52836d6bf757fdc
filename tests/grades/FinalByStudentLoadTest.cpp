#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"

// What the form holds when it has opened, and what opening it does.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kNoData =
    "informacion \"Zendria Escuela\" \"No se han encontrado alumnos o materias para introducir "
    "notas\"";

/// Gives the pending subject that grade in the first final evaluation.
void GradeFirst(const FinalSchool& school, int pending, int nota) {
  school.Sql("UPDATE EvaluacionActaPte SET Evaluado=-1, UltimaEvaluada=-1, CodNota=" +
             std::to_string(nota) +
             " WHERE CodNumEvaluacion=4 AND CodAlumnoPte_MatDet=" + std::to_string(pending));
}

/// The subjects that the form shows, student by student, as "student: rows".
Lines Shown(const FinalSchool& school, int evaluacion, const Role& role = kTutor) {
  school.DropPublications();
  auto script = OpenFinal(evaluacion) + "ver\n";
  const FormView first(RunScript(school, script, SessionOf(role)));
  if (first.Form() != "frmNotaManualFinal") return {};
  Lines shown;
  const auto students = first.Entries("cboAlumnos");
  for (std::size_t i = 0; i < students.size(); ++i) {
    school.DropPublications();
    script += "elegir cboAlumnos #" + std::to_string(i) + "\nver\n";
    const FormView form(RunScript(school, script, SessionOf(role)));
    auto line = students[i] + ":";
    const auto cells = form.Cells("rtvNotasAlumno");
    for (std::size_t row = 1; row < cells.size(); ++row)
      line += " " + cells[row].substr(cells[row].rfind('|') + 1);
    shown.push_back(line);
  }
  return shown;
}

TEST(FinalByStudentLoad, DialogHasItsCaptions) {
  const FinalSchool school;
  const FormView form(RunScript(school, OpenFinal() + "ver\n", SessionOf(kTutor)));
  EXPECT_EQ(form.Form(), "frmNotaManualFinal");
  EXPECT_EQ(form.Title(), "Introducción de notas. Paso 2 de 2");
  EXPECT_EQ(form.Text("fraNota"), "Notas del Alumno:");
  EXPECT_EQ(form.Text("chkPromocion"), "Promoción");
  EXPECT_EQ(form.Text("cmdAceptar"), "Aceptar");
  EXPECT_EQ(form.Text("cmdCancelar"), "Cancelar");
  EXPECT_EQ(form.Text("fraAniCarga"), "Cargando Datos");
  EXPECT_FALSE(form.Visible("fraAniCarga"));
  for (const auto* const control :
       {"cboAlumnos", "cmdAceptar", "cmdCancelar", "cmdAnterior", "cmdSiguiente", "rtvNotasAlumno"})
    EXPECT_TRUE(form.Enabled(control) && form.Visible(control)) << control;
}

TEST(FinalByStudentLoad, CaptionOfTheObservationComesFromItsKindOfGrade) {
  const FinalSchool school;
  const auto script = OpenFinal() + "ver\n";
  EXPECT_EQ(FormView(RunScript(school, script, SessionOf(kTutor))).Text("lblNotaManual(1)"),
            "Observación del tutor");
  school.Sql("DELETE FROM TipoNota WHERE IDTipoNota=51");
  school.DropPublications();
  EXPECT_EQ(FormView(RunScript(school, script, SessionOf(kTutor))).Text("lblNotaManual(1)"),
            "Observación del tutor:");
}

TEST(FinalByStudentLoad, TutorSeesAnEmptyObservationAndNobodyThePromotion) {
  const FinalSchool school;
  for (const auto& role : {kUnrestricted, kTutor}) {
    school.DropPublications();
    const FormView form(RunScript(school, OpenFinal() + "ver\n", SessionOf(role)));
    EXPECT_TRUE(form.Visible("fraObservacion(0)") && form.Enabled("cboObservacion"));
    EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
    EXPECT_FALSE(form.Visible("chkPromocion"));
  }
  school.DropPublications();
  const FormView form(RunScript(school, OpenFinal() + "ver\n", SessionOf(kTeacher)));
  EXPECT_FALSE(form.Visible("fraObservacion(0)"));
  EXPECT_FALSE(form.Enabled("cboObservacion"));
  EXPECT_FALSE(form.Visible("chkPromocion"));
  EXPECT_FALSE(form.Enabled("chkPromocion"));
}

TEST(FinalByStudentLoad, StudentsAndSubjectsByTheirOrderWithTheirCourse) {
  const FinalSchool school;
  school.Sql("UPDATE Alumno SET OrdenSeccion=10 WHERE IDAlumno=2");
  const FormView form(
      RunScript(school, OpenFinal() + "pulsar cmdSiguiente\nver\n", SessionOf(kTutor)));
  EXPECT_THAT(
      form.Entries("cboAlumnos"),
      ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1", "10 Ñúñez Sanz, Íñigo=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||||Observación|Medidas Adoptadas||",
                          "Lengua (1º ESO)|||||| |0|1", "Matemáticas (1º ESO)|||||| |0|2"));
}

TEST(FinalByStudentLoad, LocksHoldEachSubjectOnceHoweverManyStudentsCarryIt) {
  const FinalSchool school;
  static_cast<void>(RunScript(school, OpenFinal(), SessionOf(kTutor)));
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte ORDER BY 1"),
              ElementsAre("3111", "3112", "3113"));
}

TEST(FinalByStudentLoad, SubjectThatSomebodyIsGradingStaysOut) {
  const FinalSchool school;
  school.Bloquea(2, 4, 3111, 3, 99);
  const auto result = RunScript(school, OpenFinal() + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(FormView(result).Entries("cboAlumnos"),
              ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1"));
}

TEST(FinalByStudentLoad, OwnPublicationIsRefusedOnceAndStepOneComesBack) {
  const FinalSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,2,321,4)");
  const auto result = RunScript(school, OpenFinal() + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAre("informacion \"Zendria Escuela\" \"En la sección y evaluación "
                          "seleccionadas se están introduciendo notas. No puede acceder a estos "
                          "datos.\""));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual1");
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(StepOne(kTutor, 4) + Lines{FinalFormLoad(kTutor, 4).front()} +
                               Leave(kTutor, 0)));
  EXPECT_THAT(school.Rows("SELECT IDPublicacionPte FROM PublicacionPte"), ElementsAre("7"));
}

TEST(FinalByStudentLoad, PublicationOfAnotherUserIsNoObstacle) {
  const FinalSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,3,321,4)");
  const auto result = RunScript(school, OpenFinal(), SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_THAT(Traffic(result), Contains(Sql("INSERT INTO Publicacionpte  VALUES (8,1,2,4,4)")));
}

TEST(FinalByStudentLoad, SubjectWithoutDetailsLosesItsRowsAlsoWhenTheDialogIsCancelled) {
  const FinalSchool school;
  school.Evalua(1, 1, 105);
  school.Sql("DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111");
  const auto result = RunScript(school, OpenFinal() + "pulsar cmdCancelar\n", SessionOf(kTutor));
  Lines deletes;
  for (const auto& line : Traffic(result.After("pulsar cmdNotaManual1(0)")))
    if (line.find("DELETE") != std::string::npos) deletes.push_back(line);
  Lines expected;
  for (const long pending : {1, 3}) {
    expected.push_back(Sql("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet={}", {pending}));
    expected.push_back(
        Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet={}", {pending}));
    expected.push_back(Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet={}", {pending}));
  }
  EXPECT_EQ(deletes, expected);
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"),
              ElementsAre("2", "4", "5"));
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM EvaluacionPte"), ElementsAre("0"));
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("0"));
}

TEST(FinalByStudentLoad, SubjectOfTheTutorsKindIsAbsentFromTheGridAndFromTheLocks) {
  const FinalSchool school;
  school.Evalua(school.Pendiente(3, 3115, 2), 4);
  EXPECT_THAT(Shown(school, 4), Contains("1   Abad Rey, Jorge=3: 4"));
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte"), Not(Contains("3115")));
}

TEST(FinalByStudentLoad, SubjectOfAnotherKindEndsTheLoadInTheDatabasesError) {
  const FinalSchool school;
  school.Evalua(school.Pendiente(3, 3116, 2), 4);
  const auto result = RunScript(school, OpenFinal(), SessionOf(kTutor));
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("-2147467259 ")));
  const auto traffic = Traffic(result);
  const Lines last(traffic.end() - 5, traffic.end());
  EXPECT_THAT(
      last,
      ElementsAre(KindOf(3116),
                  Sql("SELECT CodPersonal, CodPersonalAsociado, CodMateria, CodSeccion FROM "
                      "MateriaDetalles WHERE IDMateriaDetalles=3116"),
                  Sql("SELECT Nombre FROM Materia WHERE IDMateria=6"),
                  Sql("SELECT Curso.Descripcion FROM Curso INNER JOIN Seccion ON "
                      "Seccion.codCurso=Curso.IDCurso WHERE IDSeccion=311"),
                  Sql("SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActaPte WHERE "
                      "CodNumEvaluacion=4 AND CodAlumno_MateriaDetalles=6")));
}

// Kind 4 is kept in the second final without a look at the first, so its load gets as far as in
// the first; any other kind asks.
TEST(FinalByStudentLoad, OtherKindsInTheSecondFinal) {
  for (const auto kind : {4, 2}) {
    const FinalSchool school;
    const auto pending = school.Pendiente(3, 3116, 2);
    for (const auto evaluacion : {4, 5}) school.Evalua(pending, evaluacion, 402);
    school.Sql("UPDATE TipoMateria SET CodEspecificarTipoMateria=" + std::to_string(kind) +
               " WHERE IDTipoMateria=40");
    const auto traffic = Traffic(RunScript(school, OpenFinal(5), SessionOf(kTutor)));
    EXPECT_EQ(traffic.back(),
              Sql("SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActaPte WHERE "
                  "CodNumEvaluacion=5 AND CodAlumno_MateriaDetalles=6"));
    EXPECT_EQ(std::count(traffic.begin(), traffic.end(), PassedFirst(6)), kind == 4 ? 0 : 1);
  }
}

TEST(FinalByStudentLoad, SecondFinalLeavesOutWhatTheFirstPassed) {
  const FinalSchool school;
  GradeFirst(school, 1, 105);
  GradeFirst(school, 2, 104);
  GradeFirst(school, 3, 110);
  GradeFirst(school, 4, 100);
  EXPECT_THAT(Shown(school, 5),
              ElementsAre("1   Abad Rey, Jorge=3: 4", "2   Díaz Cano, Marta=1: 2"));
}

// The subject is out either way; the student stays by another subject of his.
TEST(FinalByStudentLoad, SecondFinalLeavesOutWhatHasNoGradeOrOneThatIsGone) {
  const FinalSchool school;
  GradeFirst(school, 2, 104);
  GradeFirst(school, 3, 999);
  EXPECT_THAT(Shown(school, 5), ElementsAre("2   Díaz Cano, Marta=1: 2"));
}

TEST(FinalByStudentLoad, SecondFinalWithNothingLeftEndsInTheMessage) {
  const FinalSchool school;
  for (const auto pending : {1, 2, 3, 4}) GradeFirst(school, pending, 105);
  const auto result = RunScript(school, OpenFinal(5) + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNoData));
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual1");
  EXPECT_THAT(Traffic(result.After("pulsar cmdNotaManual1(0)")),
              Not(Contains(HasSubstr("INSERT"))));
}

// What decides is `Orden` 2: an extraordinary evaluation is final, and shows everything.
TEST(FinalByStudentLoad, ThirdFinalShowsWhatTheFirstPassed) {
  const FinalSchool school;
  GradeFirst(school, 4, 105);
  school.Evalua(4, 6);
  EXPECT_THAT(Shown(school, 6), ElementsAre("1   Abad Rey, Jorge=3: 4"));
}

TEST(FinalByStudentLoad, SecondFinalIsForgottenWhenTheFormIsOpenedAgain) {
  const FinalSchool school;
  GradeFirst(school, 1, 104);
  GradeFirst(school, 3, 105);
  const auto result = RunScript(school,
                                OpenFinal(5) +
                                    "ver\npulsar cmdCancelar\n"
                                    "elegir cboEvaluaciones =4\n"
                                    "pulsar cmdNotaManual1(0)\nver\n",
                                SessionOf(kTutor));
  EXPECT_THAT(FormView(result, 1).Entries("cboAlumnos"), ElementsAre("2   Díaz Cano, Marta=1"));
  EXPECT_EQ(FormView(result).Entries("cboAlumnos").size(), 3U);
}

TEST(FinalByStudentLoad, StoredGradesAreShown) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=107, CodNotaObservacion=202, RE_AC_DIV=2 WHERE "
      "CodAlumnoPte_MatDet=4 AND CodNumEvaluacion=4");
  const auto result = RunScript(school, OpenFinal() + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              Contains("Francés (1º ESO)|7||||Mejora|Adaptacion curricular|0|4"));
  EXPECT_THAT(Traffic(result), Contains(Sql("SELECT Aprobado FROM Nota WHERE IDNota=107")));
}

// Nothing is read from the answer, so here a grade that is gone doesn't end the load.
TEST(FinalByStudentLoad, GradeThatIsGoneIsLoadedAndShownAsNothing) {
  const FinalSchool school;
  GradeFirst(school, 4, 999);
  const auto result = RunScript(school, OpenFinal() + "ver\n", SessionOf(kTutor));
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"), Contains("Francés (1º ESO)|||||| |0|4"));
}

TEST(FinalByStudentLoad, ClosedYearCanBeReadAndNotSaved) {
  const FinalSchool school;
  auto options = SessionOf(kTutor);
  options.activa = false;
  const auto result = RunScript(
      school, OpenFinal() + "ver\nelegir cboAlumnos =2\npulsar cmdAceptar\npulsar cmdCancelar\n",
      options);
  EXPECT_FALSE(FormView(result).Enabled("cmdAceptar"));
  EXPECT_TRUE(FormView(result).Enabled("cboAlumnos"));
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("pulsar cmdAceptar")));
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("UPDATE"))));
}

}  // namespace
}  // namespace quorvane::test
