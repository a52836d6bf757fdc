#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"
#include "tests/grades/OrdinaryStatements.h"

// What a final evaluation by subject holds when it has opened, and what opening it does.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kNoData =
    "informacion \"Zendria Escuela\" \"No existen alumno o materias para poner notas\"";
constexpr const char* kHeading = "Orden en Sección / Alumno|Nota||||Observación|Medidas Adoptadas|";

FormView Opened(const FinalSchool& school, const std::string& gestures = "",
                const Role& role = kTutor, int evaluacion = 4) {
  school.DropPublications();
  return FormView(
      RunScript(school, OpenBySubject(evaluacion) + gestures + "ver\n", SessionOf(role)));
}

TEST(FinalBySubjectLoad, DialogHasItsCaptions) {
  const FinalSchool school;
  const auto form = Opened(school);
  EXPECT_EQ(form.Form(), "frmNotaMateriaFinal");
  EXPECT_EQ(form.Title(), "Introducción de notas. Paso 2 de 2");
  EXPECT_EQ(form.Text("fraNota"), "Notas del Alumno:");
  EXPECT_EQ(form.Text("cmdAceptar"), "Aceptar");
  EXPECT_EQ(form.Text("cmdCancelar"), "Cancelar");
  EXPECT_EQ(form.Text("fraAniCarga"), "Cargando... Espere por favor");
  EXPECT_FALSE(form.Visible("fraAniCarga"));
  for (const auto* const control : {"cboMaterias", "cmdAceptar", "cmdCancelar", "cmdAnterior",
                                    "cmdSiguiente", "rtvNotasAlumno"})
    EXPECT_TRUE(form.Enabled(control) && form.Visible(control)) << control;
}

TEST(FinalBySubjectLoad, SubjectsAreGatheredAsTheStudentsBringThem) {
  const FinalSchool school;
  const auto form = Opened(school);
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Lengua (1º ESO)=2", "Matemáticas (1º ESO)=3"));
  EXPECT_EQ(form.Index("cboMaterias"), 0);
}

TEST(FinalBySubjectLoad, RowsAreTheStudentsOfTheSubjectByTheirOrder) {
  const FinalSchool school;
  school.Sql("UPDATE Alumno SET OrdenSeccion=10 WHERE IDAlumno=2");
  EXPECT_THAT(Opened(school).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "1   Abad Rey, Jorge|||||| |3"));
  EXPECT_THAT(
      Opened(school, "pulsar cmdSiguiente\n").Cells("rtvNotasAlumno"),
      ElementsAre(kHeading, "2   Díaz Cano, Marta|||||| |1", "10 Ñúñez Sanz, Íñigo|||||| |2"));
}

TEST(FinalBySubjectLoad, StudentHasOneRowHoweverManySubjectsHeCarries) {
  const FinalSchool school;
  static_cast<void>(school.Pendiente(1, 3113, 3));
  school.Evalua(6, 4);
  EXPECT_THAT(
      Opened(school).Cells("rtvNotasAlumno"),
      ElementsAre(kHeading, "1   Abad Rey, Jorge|||||| |3", "2   Díaz Cano, Marta|||||| |1"));
}

TEST(FinalBySubjectLoad, TwoSectionsOfTheSameSubjectAreTwoSubjects) {
  const FinalSchool school;
  static_cast<void>(school.Pendiente(3, 3121, 2));
  school.Evalua(6, 4);
  const auto form = Opened(school, "pulsar cmdSiguiente\n");
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Lengua (1º ESO)=2", "Lengua (1º ESO)=3",
                          "Matemáticas (1º ESO)=4"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"), ElementsAre(kHeading, "1   Abad Rey, Jorge|||||| |3"));
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte ORDER BY 1"),
              ElementsAre("3111", "3112", "3113", "3121"));
}

/// A course's code of promotion and the caption that nobody sees.
struct Promotion {
  int code;
  const char* caption;
};

class FinalBySubjectPromotion : public ::testing::TestWithParam<Promotion> {};

TEST_P(FinalBySubjectPromotion, DecidesACaptionAndNothingMore) {
  const FinalSchool school;
  school.Sql("UPDATE Curso SET Promocion=" + std::to_string(GetParam().code));
  for (const auto& role : {kUnrestricted, kTutor, kTeacher}) {
    const auto form = Opened(school, "", role);
    EXPECT_EQ(form.Text("chkPromocion"), GetParam().caption);
    EXPECT_FALSE(form.Visible("chkPromocion"));
    EXPECT_FALSE(form.Visible("fraObservacion(0)"));
    EXPECT_EQ(form.Widths("rtvNotasAlumno").at(6), 0);
  }
}

TEST_P(FinalBySubjectPromotion, MeasuresFollowTheirOwnFlag) {
  const FinalSchool school;
  school.Sql("UPDATE Curso SET RE_AC=-1, Promocion=" + std::to_string(GetParam().code));
  EXPECT_EQ(Opened(school).Widths("rtvNotasAlumno").at(6), 2000);
}

INSTANTIATE_TEST_SUITE_P(Codes, FinalBySubjectPromotion,
                         ::testing::Values(Promotion{0, "Promoción"}, Promotion{1, "Promoción"},
                                           Promotion{2, "Promoción al título"},
                                           Promotion{3, "Promoción"}),
                         [](const auto& promotion) {
                           return "Code" + std::to_string(promotion.param.code);
                         });

TEST(FinalBySubjectLoad, ObservationIsNeverFilledAndItsCaptionWaitsForAStudent) {
  const FinalSchool school;
  for (const auto& role : {kUnrestricted, kTutor, kTeacher}) {
    const auto form = Opened(school, "lista rtvNotasAlumno 1 1\n", role);
    EXPECT_EQ(form.Text("lblNotaManual(1)"), "Observación del tutor al alumno ");
    EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
    EXPECT_EQ(form.Enabled("cboObservacion"), role.section);
    EXPECT_EQ(form.Enabled("chkPromocion"), role.section);
  }
  school.Sql("DELETE FROM TipoNota WHERE IDTipoNota=51");
  EXPECT_EQ(Opened(school).Text("lblNotaManual(1)"), " al alumno ");
}

TEST(FinalBySubjectLoad, LocksHoldEachSubjectOnceHoweverManyStudentsCarryIt) {
  const FinalSchool school;
  static_cast<void>(RunScript(school, OpenBySubject(4), SessionOf(kTutor)));
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte ORDER BY 1"),
              ElementsAre("3111", "3112", "3113"));
}

TEST(FinalBySubjectLoad, SubjectThatSomebodyIsGradingStaysOut) {
  const FinalSchool school;
  const auto script = OpenBySubject(4, "sql \"INSERT INTO BloqueoPte VALUES (2,4,3111,3,99)\"\n");
  EXPECT_THAT(
      FormView(RunScript(school, script + "ver\n", SessionOf(kTutor))).Entries("cboMaterias"),
      ElementsAre("Francés (1º ESO)=1", "Matemáticas (1º ESO)=2"));
}

TEST(FinalBySubjectLoad, WithoutASubjectItEndsInTheMessageAndInStepOne) {
  const FinalSchool school;
  const auto script = OpenBySubject(4, "sql \"DELETE FROM EvaluacionActaPte\"\n");
  const auto result = RunScript(school, script + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNoData));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaMateria1");
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("INSERT INTO Publicacionpte"))));
}

// A tutor who chose while his profile was the unrestricted one: there is something to grade, but
// nobody of the staff to grade it.
TEST(FinalBySubjectLoad, SubjectsWithoutAPersonEndInTheMessageToo) {
  const FinalSchool school;
  const auto script = OpenBySubject(4, "sesion usuario=2 perfil=1\n");
  const auto result = RunScript(school, script + "ver\n", SessionOf(kUnrestricted));
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNoData));
  EXPECT_EQ(FormView(result).Form(), "frmNotaMateria1");
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("0"));
}

TEST(FinalBySubjectLoad, OwnPublicationIsRefusedWithoutASecondMessage) {
  const FinalSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,2,321,4)");
  const auto result = RunScript(school, OpenBySubject(4) + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAre("informacion \"Zendria Escuela\" \"En la sección y evaluación "
                          "seleccionadas se están introduciendo notas. No puede acceder a estos "
                          "datos.\""));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaMateria1");
  EXPECT_THAT(Traffic(result), ElementsAreArray(StepOneBySubject(kTutor, 4) +
                                                Lines{FinalFormLoad(kTutor, 4).front()} +
                                                Lines{FinalCourse()} + Leave(kTutor, 0)));
  EXPECT_THAT(school.Rows("SELECT IDPublicacionPte FROM PublicacionPte"), ElementsAre("7"));
}

TEST(FinalBySubjectLoad, SubjectWithoutDetailsLosesItsRowsAlsoWhenTheDialogIsCancelled) {
  const FinalSchool school;
  school.Evalua(3, 1, 105);
  school.Sql("DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111");
  static_cast<void>(
      RunScript(school, OpenBySubject(4) + "pulsar cmdCancelar\n", SessionOf(kTutor)));
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"),
              ElementsAre("2", "4", "5"));
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM EvaluacionPte"), ElementsAre("0"));
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("0"));
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM BloqueoPte"), ElementsAre("0"));
}

/// Gives the pending subject that grade in the first final evaluation.
void GradeFirst(const FinalSchool& school, int pending, int nota) {
  school.Sql("UPDATE EvaluacionActaPte SET Evaluado=-1, UltimaEvaluada=-1, CodNota=" +
             std::to_string(nota) +
             " WHERE CodNumEvaluacion=4 AND CodAlumnoPte_MatDet=" + std::to_string(pending));
}

TEST(FinalBySubjectLoad, SecondFinalLeavesOutWhatTheFirstPassed) {
  const FinalSchool school;
  GradeFirst(school, 1, 105);
  GradeFirst(school, 2, 104);
  GradeFirst(school, 3, 100);
  GradeFirst(school, 4, 110);
  const auto form = Opened(school, "pulsar cmdSiguiente\n", kTutor, 5);
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Matemáticas (1º ESO)=1", "Lengua (1º ESO)=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "3   Ñúñez Sanz, Íñigo|||||| |2"));
}

TEST(FinalBySubjectLoad, SecondFinalLeavesOutWhatHasNoGradeOrOneThatIsGone) {
  const FinalSchool school;
  GradeFirst(school, 2, 104);
  GradeFirst(school, 3, 999);
  EXPECT_THAT(Opened(school, "", kTutor, 5).Entries("cboMaterias"),
              ElementsAre("Matemáticas (1º ESO)=1"));
}

TEST(FinalBySubjectLoad, SecondFinalWithNothingLeftEndsInTheMessage) {
  const FinalSchool school;
  for (const auto pending : {1, 2, 3, 4}) GradeFirst(school, pending, 105);
  const auto result = RunScript(school, OpenBySubject(5) + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNoData));
  EXPECT_EQ(FormView(result).Form(), "frmNotaMateria1");
}

TEST(FinalBySubjectLoad, SecondFinalIsForgottenWhenTheFormIsOpenedAgain) {
  const FinalSchool school;
  GradeFirst(school, 1, 104);
  const auto result = RunScript(school,
                                OpenBySubject(5) +
                                    "ver\npulsar cmdCancelar\n"
                                    "elegir cboEvaluaciones =4\n"
                                    "pulsar cmdNotaManual1(0)\nver\n",
                                SessionOf(kTutor));
  EXPECT_THAT(FormView(result, 1).Entries("cboMaterias"), ElementsAre("Lengua (1º ESO)=1"));
  EXPECT_EQ(FormView(result).Entries("cboMaterias").size(), 3U);
}

TEST(FinalBySubjectLoad, StoredGradesAreShown) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=107, CodNotaObservacion=202, RE_AC_DIV=2 WHERE "
      "CodAlumnoPte_MatDet=4 AND CodNumEvaluacion=4");
  EXPECT_THAT(Opened(school).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "1   Abad Rey, Jorge|7||||Mejora|Adaptacion curricular|3"));
}

TEST(FinalBySubjectLoad, GradeThatIsGoneIsLoadedAndShownAsNothing) {
  const FinalSchool school;
  GradeFirst(school, 4, 999);
  EXPECT_THAT(Opened(school).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "1   Abad Rey, Jorge|||||| |3"));
}

TEST(FinalBySubjectLoad, ClosedYearCanBeReadAndNotSaved) {
  const FinalSchool school;
  auto options = SessionOf(kTutor);
  options.activa = false;
  const auto result = RunScript(
      school,
      OpenBySubject(4) + "ver\nelegir cboMaterias #1\npulsar cmdAceptar\npulsar cmdCancelar\n",
      options);
  EXPECT_FALSE(FormView(result).Enabled("cmdAceptar"));
  EXPECT_TRUE(FormView(result).Enabled("cboMaterias"));
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("pulsar cmdAceptar")));
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("UPDATE"))));
}

TEST(FinalBySubjectLoad, CourseThatIsGoneEndsTheLoad) {
  const FinalSchool school;
  const auto script = OpenBySubject(4, "sql \"DELETE FROM Curso WHERE IDCurso=32\"\n");
  const auto result = RunScript(school, script, SessionOf(kTutor));
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(Traffic(result).back(), FinalCourse());
}

}  // namespace
}  // namespace quorvane::test
