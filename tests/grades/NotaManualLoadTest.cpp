#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/Statements.h"

// What the form holds when it has opened.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(NotaManualLoad, DialogHasItsCaptions) {
  const GradeSchool school;
  const FormView form(RunScript(school, Open() + "ver\n", Tutor()));
  EXPECT_EQ(form.Form(), "frmNotaManual");
  EXPECT_EQ(form.Title(), "Introducción de notas. Paso 2 de 2");
  EXPECT_EQ(form.Text("lblNotaManual(0)"), "Alumno:");
  EXPECT_EQ(form.Text("lblNotaManual(2)"), "Ausencias:");
  EXPECT_EQ(form.Text("lblNotaManual(3)"), "Retrasos:");
  EXPECT_EQ(form.Text("cmdAnterior"), "<");
  EXPECT_EQ(form.Text("cmdSiguiente"), ">");
  EXPECT_EQ(form.Text("fraNota(0)"), "Notas del Alumno:");
  EXPECT_EQ(form.Text("fraNotaTutor(0)"), "Notas y Observaciones del Alumno:");
  EXPECT_EQ(form.Text("cmdAceptar"), "Aceptar");
  EXPECT_EQ(form.Text("cmdCancelar"), "Cancelar");
  EXPECT_EQ(form.Text("fraAniCarga"), "Cargando datos");
  EXPECT_THAT(form.Tabs("tabNotaManual"), ElementsAre("Notas"));
  EXPECT_FALSE(form.Visible("fraNotaManual(1)"));
  EXPECT_FALSE(form.Visible("fraAniCarga"));
  for (const auto* const control :
       {"cboAlumnos", "cmdAceptar", "cmdCancelar", "tabNotaManual", "cmdAnterior", "cmdSiguiente"})
    EXPECT_TRUE(form.Enabled(control) && form.Visible(control)) << control;
}

TEST(NotaManualLoad, CaptionOfTheObservationComesFromItsKindOfGrade) {
  const GradeSchool school;
  EXPECT_EQ(FormView(RunScript(school, Open() + "ver\n", Tutor())).Text("lblNotaManual(1)"),
            "Observación del tutor");
  school.Sql("DELETE FROM TipoNota WHERE IDTipoNota=51");
  school.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
  EXPECT_EQ(FormView(RunScript(school, Open() + "ver\n", Tutor())).Text("lblNotaManual(1)"),
            "Observación:");
}

TEST(NotaManualLoad, StudentsAreListedByTheirOrderAndSubjectsByTheirs) {
  const GradeSchool school;
  const FormView form(RunScript(school, Open() + "pulsar cmdSiguiente\nver\n", Tutor()));
  EXPECT_THAT(
      form.Entries("cboAlumnos"),
      ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||||Observación||", "Lengua (1º ESO)||||||0|2",
                          "Matemáticas (1º ESO)||||||0|1"));
}

TEST(NotaManualLoad, OrderOfTwoDigitsHasOneBlankBehindIt) {
  const GradeSchool school;
  school.Sql(
      "UPDATE Alumno SET OrdenSeccion=10 WHERE IDAlumno=3;"
      "UPDATE Alumno SET OrdenSeccion=NULL WHERE IDAlumno=2");
  EXPECT_THAT(
      FormView(RunScript(school, Open() + "ver\n", Tutor())).Entries("cboAlumnos"),
      ElementsAre(" Ñúñez Sanz, Íñigo=2", "2   Díaz Cano, Marta=1", "10 Abad Rey, Jorge=3"));
}

TEST(NotaManualLoad, StudentWhoLeftOrIsAheadOfHisYearIsNeverListed) {
  const GradeSchool school;  // student 4 has left and has a row in this evaluation
  school.Sql("UPDATE Alumno SET Anticipado=-1 WHERE IDAlumno=3");
  EXPECT_THAT(FormView(RunScript(school, Open() + "ver\n", Unrestricted())).Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
}

TEST(NotaManualLoad, StudentWithoutSubjectsInThisEvaluationIsRemovedEvenForTheTutor) {
  const GradeSchool school;
  EXPECT_THAT(FormView(RunScript(school, Open(2) + "ver\n", Tutor())).Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
}

TEST(NotaManualLoad, StoredGradesAreShown) {
  const GradeSchool school;
  school.Sql(
      "UPDATE EvaluacionPte SET CodNota=107, CodNotaObservacion=202, CodNotaActitud=105 "
      "WHERE CodAlumnoPte_MatDet=2 AND CodNumEvaluacion=1");
  const auto result = RunScript(school, Open() + "pulsar cmdSiguiente\nver\n", Tutor());
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              Contains("Lengua (1º ESO)|7|||5|Mejora|0|2"));
  EXPECT_THAT(Traffic(result), Contains(Sql("SELECT Aprobado FROM Nota WHERE IDNota=107")));
}

TEST(NotaManualLoad, SubjectThatIsGoneIsPurgedAndTheLoadGoesOnWithTheNextRow) {
  const GradeSchool school;
  school.Sql("DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111");
  const auto result = RunScript(school, Open() + "ver\n", Tutor());
  EXPECT_THAT(FormView(result).Entries("cboAlumnos"),
              ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1"));
  Lines deletes;
  for (const auto& line : Traffic(result))
    if (line.find("DELETE") != std::string::npos) deletes.push_back(line);
  Lines expected;
  for (const long pending : {2, 3}) {
    expected.push_back(Sql("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet={}", {pending}));
    expected.push_back(
        Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet={}", {pending}));
    expected.push_back(Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet={}", {pending}));
  }
  EXPECT_THAT(deletes, ::testing::ElementsAreArray(expected));
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"),
              ElementsAre("1", "4", "5"));
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM EvaluacionPte WHERE CodAlumnoPte_MatDet IN (2,3)"),
              ElementsAre("0"));
}

TEST(NotaManualLoad, SubjectOfTheTutorsKindIsAbsentFromTheGridAndFromTheLocks) {
  const GradeSchool school;
  school.Evalua(school.Pendiente(3, 3115, 2), 1);
  const auto result = RunScript(school, Open() + "ver\n", Tutor());
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").size(), 2U);
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte WHERE CodMatDet=3115"), IsEmpty());
}

TEST(NotaManualLoad, SubjectOfAnotherKindCannotBeLoaded) {
  const GradeSchool school;
  school.Evalua(school.Pendiente(3, 3116, 2), 1);
  const auto result = RunScript(school, Open(), Tutor());
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3265 ")));
  EXPECT_THAT(Traffic(result).back(),
              Sql("SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN "
                  "(SELECT CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles=3116)"));
}

TEST(NotaManualLoad, ClosedYearCanBeReadAndNotSaved) {
  const GradeSchool school;
  auto options = Tutor();
  options.activa = false;
  const auto result = RunScript(
      school, Open() + "ver\nelegir cboAlumnos =2\npulsar cmdAceptar\npulsar cmdCancelar\n",
      options);
  const FormView form(result);
  EXPECT_FALSE(form.Enabled("cmdAceptar"));
  EXPECT_TRUE(form.Enabled("cboAlumnos"));
  EXPECT_EQ(form.Entries("cboAlumnos").size(), 3U);
  EXPECT_EQ(result.Of("rechazo").size(), 1U) << result.Text();
}

TEST(NotaManualLoad, FormIsBackAtItsMeasuresAfterTheBusySign) {
  const GradeSchool school;
  const FormView form(RunScript(school, Open() + "ver\n", Tutor()));
  EXPECT_EQ(form.Width(), 9300);
  EXPECT_EQ(form.Height(), 6465);
}

TEST(NotaManualLoad, TeacherWithProfileButNoSubjectsOfTheSectionGetsNothing) {
  const GradeSchool school;
  const auto result = RunScript(school,
                                "nodo 124\nelegir cboCursos =32\nelegir cboSecciones =321\n"
                                "elegir cboEvaluaciones =2\nsql \"DELETE FROM Profesor_Pte\"\n"
                                "pulsar cmdNotaManual1(0)\nver\n",
                                Teacher());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(HasSubstr("No existen alumnos o materias")));
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual1");
}

TEST(NotaManualLoad, SubjectCarriedByTwoStudentsIsLockedOnce) {
  const GradeSchool school;
  RunScript(school, Open(), Tutor());
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM BloqueoPte WHERE CodMatDet=3111"),
              ElementsAre("1"));
}

}  // namespace
}  // namespace quorvane::test
