#include "tests/grades/OrdinaryForms.h"
#include "tests/support/Matchers.h"

// What the form holds when it has opened.

namespace quorvane::test {
namespace {

using NotaManualLoadTest = OneFormTest<kByStudent>;

TEST_F(NotaManualLoadTest, CaptionOfTheObservationComesFromItsKindOfGrade) {
  EXPECT_EQ(Shown().Text("lblNotaManual(1)"), "Observación del tutor");
  school_.Sql("DELETE FROM TipoNota WHERE IDTipoNota=51");
  EXPECT_EQ(Shown().Text("lblNotaManual(1)"), "Observación:");
}

TEST_F(NotaManualLoadTest, StudentsAreListedByTheirOrderAndSubjectsByTheirs) {
  const auto form = Shown("pulsar cmdSiguiente\n");
  EXPECT_THAT(
      form.Entries("cboAlumnos"),
      ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||||Observación||", "Lengua (1º ESO)||||||0|2",
                          "Matemáticas (1º ESO)||||||0|1"));
}

TEST_F(NotaManualLoadTest, OrderOfTwoDigitsHasOneBlankBehindIt) {
  school_.Sql(
      "UPDATE Alumno SET OrdenSeccion=10 WHERE IDAlumno=3;"
      "UPDATE Alumno SET OrdenSeccion=NULL WHERE IDAlumno=2");
  EXPECT_THAT(
      Shown().Entries("cboAlumnos"),
      ElementsAre(" Ñúñez Sanz, Íñigo=2", "2   Díaz Cano, Marta=1", "10 Abad Rey, Jorge=3"));
}

// Student 4 has left and has a row in this evaluation.
TEST_F(NotaManualLoadTest, StudentWhoLeftOrIsAheadOfHisYearIsNeverListed) {
  school_.Sql("UPDATE Alumno SET Anticipado=-1 WHERE IDAlumno=3");
  EXPECT_THAT(Shown({}, Unrestricted()).Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
}

TEST_F(NotaManualLoadTest, StudentWithoutSubjectsInThisEvaluationIsRemovedEvenForTheTutor) {
  EXPECT_THAT(FormView(RunScript(school_, form_.Open(2) + "ver\n", Tutor())).Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
}

TEST_F(NotaManualLoadTest, SubjectThatIsGoneIsPurgedAndTheLoadGoesOnWithTheNextRow) {
  school_.Sql("DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111");
  const auto result = Play("ver\n");
  EXPECT_THAT(FormView(result).Entries("cboAlumnos"),
              ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1"));
  Lines deletes;
  for (const auto& line : Traffic(result))
    if (line.find("DELETE") != std::string::npos) deletes.push_back(line);
  EXPECT_THAT(deletes, ElementsAreArray(Purge(2) + Purge(3)));
  EXPECT_THAT(school_.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"),
              ElementsAre("1", "4", "5"));
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM EvaluacionPte WHERE CodAlumnoPte_MatDet IN (2,3)"),
              ElementsAre("0"));
}

TEST_F(NotaManualLoadTest, TeacherWithProfileButNoSubjectsOfTheSectionGetsNothing) {
  const auto result =
      RunScript(school_, form_.Open(2, "sql \"DELETE FROM Profesor_Pte\"\n") + "ver\n", Teacher());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(HasSubstr("No existen alumnos o materias")));
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual1");
}

TEST_F(NotaManualLoadTest, SubjectCarriedByTwoStudentsIsLockedOnce) {
  Play();
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM BloqueoPte WHERE CodMatDet=3111"),
              ElementsAre("1"));
}

}  // namespace
}  // namespace quorvane::test
