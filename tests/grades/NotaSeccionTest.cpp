#include <algorithm>

#include "tests/grades/OrdinaryForms.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// The two ordinary forms of a section, by the gestures of a user.

namespace quorvane::test {
namespace {

// Entry by the students of a section: what the form shows and offers, refuses and purges.

// The kinds of grade head their columns on the first load alone.
constexpr const char* kFirstHeading = "Materia|Nota|Concepto|Procedimiento|Actitud|Observación||";
constexpr const char* kLaterHeading = "Materia|Nota|Concepto|Procedimiento|Actitud|Observacion||";

using NotaSeccionAlumnoTest = OneFormTest<kSectionByStudent>;

TEST_F(NotaSeccionAlumnoTest, OnlyStudentsWhoHaveTheChosenSubjectStandInTheCombo) {
  for (const auto& user : {Unrestricted(), Tutor()}) {
    const auto form = Shown({}, user);
    EXPECT_THAT(form.Entries("cboAlumnos"),
                ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
    EXPECT_THAT(form.Cells("rtvNotasAlumno"),
                ElementsAre(kFirstHeading, "Lengua (1º ESO)||||||0|3111"));
  }
}

TEST_F(NotaSeccionAlumnoTest, CaptionOfTheObservationIsNotAskedForByItself) {
  // The pane of the tutor finds no kind of grade of the observation.
  school_.Sql("UPDATE TipoNota SET Abreviatura=-1 WHERE IDTipoNota=51");
  EXPECT_EQ(Shown().Text("lblNotaManual(1)"), "Observación:");
}

// The tutor's colleague gets more than was chosen.
TEST_F(NotaSeccionAlumnoTest, TeacherSeesAllHisSubjectsOfTheShownStudent) {
  const auto result =
      RunScript(school_, On(form_, 3113).Open() + "ver\npulsar cmdSiguiente\nver\n", Teacher());
  EXPECT_THAT(FormView(result).Entries("cboAlumnos"),
              ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1"));
  EXPECT_THAT(FormView(result, 1).Cells("rtvNotasAlumno"),
              ElementsAre(kFirstHeading, "Francés (1º ESO)||||||0|3113"));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(kLaterHeading, "Matemáticas (1º ESO)||||||0|3112"));
}

// Step one doesn't offer such a subject, but a teacher gets it with the others that he has.
TEST_F(NotaSeccionAlumnoTest, SubjectOfAnotherKindIsLoadedWithoutGradesAndGetsNoList) {
  school_.Evalua(school_.Pendiente(3, 3116, 2), 1, 401);
  school_.Profesor(2, 3116);
  const auto result = RunScript(school_,
                                On(form_, 3113).Open() +
                                    "ver\nlista rtvNotasAlumno 2 1\npulsar cmdAceptar\n"
                                    "pulsar cmdNotaManual1(1)\n",
                                Teacher());
  EXPECT_THAT(
      FormView(result).Cells("rtvNotasAlumno"),
      ElementsAre(kFirstHeading, "Francés (1º ESO)||||||0|3113", "Taller (1º ESO)||||||0|3116"));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[]"));
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("WHERE CodNumEvaluacion=1 AND "
                                                      "CodAlumnoPte_MatDet=6"))));
  EXPECT_EQ(school_.Stored(6, 1), "0|0|0|0|0|-1|-1") << "saved as it was loaded: without a grade";
}

TEST_F(NotaSeccionAlumnoTest, ValuesAreLeftOut) {
  school_.Evalua(school_.Pendiente(3, 3115, 2), 1);
  school_.Profesor(2, 3115);
  const FormView form(RunScript(school_, On(form_, 3113).Open() + "ver\n", Teacher()));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre(kFirstHeading, "Francés (1º ESO)||||||0|3113"));
}

TEST_F(NotaSeccionAlumnoTest, SubjectThatNoStudentHasClosesTheFormWithItsMessage) {
  const auto result =
      PlayAfter("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet IN (2,3,5)", "ver\n");
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionAlumno1");
  EXPECT_THAT(school_.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
}

TEST_F(NotaSeccionAlumnoTest, FormBySubjectThatDiedHidesItsSubjectsFromStepOne) {
  RunScript(school_, kBySubject.Open(), Tutor());
  const auto result = Play({}, Unrestricted());
  EXPECT_THAT(result.Of("rechazo"), Contains(HasSubstr("elegir cboMateria =3111")));
}

TEST_F(NotaSeccionAlumnoTest, PurgeFollowsTheCheckThatRemovesTheStudent) {
  school_.Sql("INSERT INTO EvaluacionActaPte VALUES (1,2,4,0,0,0,0,0)");
  const auto result = PlayAfter("DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111",
                                "pulsar cmdNotaManual1(1)\n");
  EXPECT_THAT(result.Of("error"), IsEmpty()) << result.Text();
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  const auto rows = [](int student) { return Load(kTutor, 1, student, {}, 3111); };
  const Lines kind = {Sql(expected::kKindOfSubject, {3111})};
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(StepOneSectionByStudent(kTutor, 1) +
                               FormLoadSectionByStudent(kTutor, 1) + rows(3) + rows(1) + kind +
                               Purge(2) + rows(2) + kind + Purge(3) + Leave(kTutor, 0)));
  EXPECT_THAT(school_.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"),
              ElementsAre("1", "4", "5"));
  EXPECT_THAT(school_.Rows("SELECT * FROM EvaluacionActaPte"), IsEmpty());
}

TEST_F(NotaSeccionAlumnoTest, PurgeWaitsForTheOtherSubjectsOfTheStudentWhoStays) {
  school_.Sql(
      "UPDATE AlumnoPte_MatDet SET CodMatDet=3999, Orden=1 WHERE IDAlumnoPte_MatDet=2;"
      "INSERT INTO Profesor_Pte VALUES (2,3999)");
  const auto result = RunScript(school_, On(form_, 3113).Open() + "ver\n", Teacher());
  const auto traffic = Traffic(result);
  auto purged = Load(kTeacher, 1, 1, {{1, 3112, 2}});
  purged.insert(purged.begin() + 1, Sql(expected::kKindOfSubject, {3999}));
  purged = purged + Purge(2);
  const auto first = std::find(traffic.begin(), traffic.end(), purged.front());
  ASSERT_GE(traffic.end() - first, static_cast<std::ptrdiff_t>(purged.size()));
  EXPECT_THAT(Lines(first, first + static_cast<std::ptrdiff_t>(purged.size())),
              ElementsAreArray(purged));
  EXPECT_EQ(FormView(result).Entries("cboAlumnos").size(), 2U);
}

// The box shows once the section is chosen again with an evaluation chosen.
class NotaSeccionAlumnoRecoveryTest : public NotaSeccionAlumnoTest {
 protected:
  NotaSeccionAlumnoRecoveryTest() {
    school_.Sql(
        "UPDATE SistemaCalificacion SET Recuperaciones=-1 WHERE IDSistemaCalificacion=1;"
        "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321;"
        "UPDATE EvaluacionPte SET CodNota=107, CodNotaObservacion=201");
  }

  ScriptResult Recover(const std::string& gestures) const {
    return PlayBehind(
        "elegir cboSecciones =321\nelegir cboEvaluaciones =1\n"
        "elegir cboMateria =3111\nmarcar chkRecuperacion 1\n",
        gestures);
  }
};

TEST_F(NotaSeccionAlumnoRecoveryTest, ShowsNoGrades) {
  const auto result = Recover("ver\n");
  EXPECT_THAT(result.Of("rechazo"), IsEmpty());
  const FormView form(result);
  EXPECT_EQ(form.Form(), "frmNotaSeccionAlumno");
  EXPECT_EQ(form.Cells("rtvNotasAlumno").back(), "Lengua (1º ESO)||||||0|3111");
}

TEST_F(NotaSeccionAlumnoRecoveryTest, EndOfAnEditIsAMissingMember) {
  const auto result = Recover("editar rtvNotasAlumno 1 1 \"3\"\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("438 ")));
}

TEST_F(NotaSeccionAlumnoRecoveryTest, SavingWritesNothingAndClosesTheForm) {
  const auto before = school_.Modulo();
  const auto result = Recover("pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n");
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("127"));
  EXPECT_EQ(Traffic(result.After("pulsar cmdAceptar")), Leave(kTutor, 1));
  EXPECT_EQ(school_.Modulo(), before);
}

// Entry by the subjects of a student of a section: what the form shows, offers and refuses.

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
  const auto result = PlayAfter(
      "UPDATE Alumno SET FechaBaja='01/02/2026', Anticipado=-1, "
      "OrdenSeccion=12 WHERE IDAlumno=1",
      "ver\n");
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(kSectionHeading, "12 Díaz Cano, Marta||||||1"));
}

TEST_F(NotaSeccionMateriaTest, SubjectThatTheUserMayNotSeeIsNotOffered) {
  const auto form = Shown({}, Teacher());
  EXPECT_THAT(form.Entries("cboMaterias"), ElementsAre("Matemáticas (1º ESO)=1"));
}

TEST_F(NotaSeccionMateriaTest, WhenNoSubjectRemainsTheFormClosesWithItsMessage) {
  const auto result = PlayAfter("INSERT INTO BloqueoPte VALUES (1,1,3112,2,9)", "ver\n", Teacher());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
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
  const auto result = PlayBehind(
      "elegir cboSecciones =321\nelegir cboEvaluaciones =1\n"
      "elegir cboAlumno =1\nmarcar chkRecuperacion 1\n");
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("marcar chkRecuperacion 1")));
}

}  // namespace
}  // namespace quorvane::test
