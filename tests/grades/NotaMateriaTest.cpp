#include "tests/grades/OrdinaryForms.h"
#include "tests/support/Matchers.h"

// Entry by subject: what the form shows and offers, leaves out and fails at.

namespace quorvane::test {
namespace {

constexpr const char* kHeading = "Orden en Sección / Alumno|Nota||||Observación|";

using NotaMateriaTest = OneFormTest<kBySubject>;

TEST_F(NotaMateriaTest, SubjectsAreGatheredInTheOrderInWhichTheStudentsBringThem) {
  const auto form = Shown();
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Lengua (1º ESO)=2", "Matemáticas (1º ESO)=3"));
  EXPECT_EQ(form.Index("cboMaterias"), 0);
}

TEST_F(NotaMateriaTest, RowsChangeFromSubjectToSubject) {
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=107, CodNotaObservacion=201 WHERE CodAlumnoPte_MatDet=3 "
      "AND CodNumEvaluacion=1");
  const auto result = Play("ver\npulsar cmdSiguiente\nver\npulsar cmdSiguiente\nver\n");
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
TEST_F(NotaMateriaTest, StudentStandsOnEachSubjectThatHeHasAndOnNoOther) {
  school_.Sql("UPDATE AlumnoPte_MatDet SET CodMatDet=3121 WHERE IDAlumnoPte_MatDet=3");
  const auto result = Play(
      "elegir cboMaterias #1\nver\n"
      "elegir cboMaterias #3\nver\n");
  EXPECT_THAT(FormView(result).Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Lengua (1º ESO)=2", "Matemáticas (1º ESO)=3",
                          "Lengua (1º ESO)=4"));
  EXPECT_THAT(FormView(result, 1).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "2   Díaz Cano, Marta||||||1"));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "3   Ñúñez Sanz, Íñigo||||||2"));
}

TEST_F(NotaMateriaTest, OrderOfOneDigitHasThreeBlanksBehindItAndOfTwoDigitsOne) {
  school_.Sql(
      "UPDATE Alumno SET OrdenSeccion=9 WHERE IDAlumno=1;"
      "UPDATE Alumno SET OrdenSeccion=10 WHERE IDAlumno=2");
  const auto form = Shown("pulsar cmdSiguiente\n");
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "9   Díaz Cano, Marta||||||1", "10 Ñúñez Sanz, Íñigo||||||2"));
}

TEST_F(NotaMateriaTest, HeadingNamesKeysAndColumnsWithoutWidthOfferNothing) {
  const auto result = Play(
      "lista rtvNotasAlumno 0 1\nlista rtvNotasAlumno 1 0\n"
      "lista rtvNotasAlumno 1 2\nlista rtvNotasAlumno 1 6\n");
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("SELECT IDNota, DescripcionCorta FROM Nota "
                                                      "WHERE NotaExcepcional"))));
}

TEST_F(NotaMateriaTest, ColumnThatWasWidenedForItsListStaysSoForTheNextSubject) {
  const auto result = PlayBehind(
      "marcar chkMostrar 1\n", "editar rtvNotasAlumno 1 5 \"Trabaja\"\npulsar cmdSiguiente\nver\n");
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(3000, 2000, 0, 0, 0, (7 + 12) * 120, 0));
}

TEST_F(NotaMateriaTest, TutorsPaneIsFilledByAnEditAndForTheTutorAlone) {
  const auto entries = [this](const ScriptOptions& user, const std::string& gestures) {
    return Shown(gestures, user).Entries("cboObservacion");
  };
  const std::string edit = "editar rtvNotasAlumno 1 1 #0\n";
  EXPECT_THAT(entries(Tutor(), ""), IsEmpty());
  EXPECT_THAT(entries(Tutor(), edit), ElementsAre(" =0", "Sigue así=501"));
  EXPECT_THAT(entries(Unrestricted(), edit), ElementsAre(" =0", "Sigue así=501"));
  EXPECT_THAT(entries(Teacher(), edit), IsEmpty());
}

TEST_F(NotaMateriaTest, TutorsGridIsHeadedByTheStudentUntilAnEdit) {
  const auto result = Play("ver\neditar rtvNotasAlumno 1 1 #0\nver\n");
  EXPECT_THAT(FormView(result, 1).Cells("rtvNotasTutor"), ElementsAre("Alumno|Nota|Actitud"));
  EXPECT_THAT(FormView(result).Cells("rtvNotasTutor"),
              ElementsAre("Valores y actitudes|Valores|Taller|"));
}

TEST_F(NotaMateriaTest, TeacherSeesHisOwnSubjectsAndStudents) {
  const auto form = Shown({}, Teacher());
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Matemáticas (1º ESO)=2"));
}

TEST_F(NotaMateriaTest, StudentWithoutASubjectHereIsNowhere) {
  const FormView form(RunScript(school_, form_.Open(2) + "ver\n", Tutor()));
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Lengua (1º ESO)=1", "Matemáticas (1º ESO)=2"));
}

TEST_F(NotaMateriaTest, SubjectLockedBySomebodyElseIsNotOffered) {
  school_.Bloquea(9, 1, 3111, 77, 500);
  EXPECT_THAT(FormView(Play("ver\n")).Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Matemáticas (1º ESO)=2"));
  EXPECT_THAT(school_.Rows("SELECT CodMatDet FROM BloqueoPte WHERE CodPublicacion=1 ORDER BY 1"),
              ElementsAre("3112", "3113"));
}

// The subject is its own key here.
TEST_F(NotaMateriaTest, SubjectThatAStudentOwesTwiceIsADuplicateKey) {
  school_.Evalua(school_.Pendiente(3, 3113, 2), 1);
  EXPECT_THAT(Play().Of("error"), ElementsAre(HasSubstr("457 ")));
}

}  // namespace
}  // namespace quorvane::test
