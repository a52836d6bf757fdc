#include <string>
#include <tuple>

#include "tests/grades/FinalForm.h"
#include "tests/grades/FinalStatements.h"
#include "tests/support/Matchers.h"

// What the final dialogs hold when they have opened, and what opening them does.

namespace quorvane::test {
namespace {

class FinalLoadTest : public FinalFormTest {
 protected:
  /// The message that there is nothing to grade, and step one again, with nothing written.
  void ExpectNothing(const ScriptResult& result) const {
    EXPECT_THAT(result.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
    EXPECT_EQ(result.Of("pitido").size(), 1U);
    EXPECT_EQ(FormView(result).Form(), form_.stepOne);
    EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("INSERT"))));
    EXPECT_THAT(school_.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
  }
};

TEST_P(FinalLoadTest, DialogHasItsCaptions) {
  const auto form = Shown();
  EXPECT_EQ(form.Text("chkPromocion"), "Promoción");
  EXPECT_EQ(form.Text("lblNotaManual(1)"), form_.observacion);
}

TEST_P(FinalLoadTest, ShowsWhatThereIsToGrade) {
  EXPECT_EQ(Walked(4), form_.walked);
  const auto form = Shown();
  EXPECT_EQ(form.Index(form_.combo), 0);
  EXPECT_EQ(form.Cells("rtvNotasAlumno").at(1), form_.Row());
}

TEST_P(FinalLoadTest, SubjectThatSomebodyIsGradingStaysOut) {
  const auto result =
      PlayBehind("sql \"INSERT INTO BloqueoPte VALUES (2,4,3111,3,99)\"\n", "ver\n");
  if (form_.withoutLengua.empty())
    ExpectNothing(result);
  else
    EXPECT_EQ(FormView(result).Entries(form_.combo), form_.withoutLengua);
}

// A tutor who chose while his profile was the unrestricted one: there is something to grade, but
// nobody of the staff to grade it.
TEST_P(FinalLoadTest, SubjectsWithoutAPersonEndInTheMessageToo) {
  ExpectNothing(PlayBehind("sesion usuario=2 perfil=1\n", "ver\n", kUnrestricted));
}

TEST_P(FinalLoadTest, SubjectWithoutDetailsLosesItsRowsAlsoWhenTheDialogIsCancelled) {
  for (const auto pending : {1, 3}) school_.Evalua(pending, 1, 105);
  const auto result = PlayBehind(
      "sql \"DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111\"\n", "ver\ncerrar\n");
  Lines deletes;
  for (const auto& line : Traffic(result.After("pulsar cmdNotaManual1(0)")))
    if (line.find("DELETE") != std::string::npos) deletes.push_back(line);
  Lines expected;
  Lines left = {"1", "2", "3", "4", "5"};
  for (const auto pending : form_.lengua) {
    expected = expected + Purge(pending);
    std::erase(left, std::to_string(pending));
  }
  EXPECT_EQ(First(deletes, expected.size()), expected);
  EXPECT_EQ(school_.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"), left);
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM EvaluacionPte"),
            2 - static_cast<int>(form_.lengua.size()));
  EXPECT_EQ(school_.Held(), "0|0");
  if (form_.withoutLengua.empty()) return;
  EXPECT_EQ(FormView(result).Entries(form_.combo), form_.withoutLengua);
}

TEST_P(FinalLoadTest, SecondFinalLeavesOutWhatTheFirstPassed) {
  GradeFirst(1, 105);
  GradeFirst(2, 104);
  GradeFirst(3, 100);
  GradeFirst(4, 110);
  EXPECT_EQ(Walked(5), form_.failed);
}

// The subject is out either way; the student stays by another subject of his.
TEST_P(FinalLoadTest, SecondFinalLeavesOutWhatHasNoGradeOrOneThatIsGone) {
  GradeFirst(2, 104);
  GradeFirst(3, 999);
  if (form_.ungraded.empty())
    EXPECT_THAT(Play("", kTutor, 5).Of("rechazo"), Contains(HasSubstr("elegir cboMateria =3111")));
  else
    EXPECT_EQ(Walked(5), form_.ungraded);
}

TEST_P(FinalLoadTest, SecondFinalWithNothingLeftEndsInTheMessage) {
  for (const std::string nota : {"105", "0"}) {
    for (const auto pending : {1, 2, 3, 4}) GradeFirst(pending, 103);
    ExpectNothing(PlayBehind("sql \"UPDATE EvaluacionActaPte SET CodNota=" + nota + "\"\n", "ver\n",
                             kTutor, 5));
  }
}

// What decides is `Orden` 2: an extraordinary evaluation is final, and shows everything.
TEST_P(FinalLoadTest, ThirdFinalShowsWhatTheFirstPassed) {
  GradeFirst(form_.pending, 105);
  school_.Evalua(form_.pending, 6);
  const auto form = Shown("", kTutor, 6);
  EXPECT_THAT(form.Entries(form_.combo), SizeIs(1));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"), ElementsAre(form_.heading, form_.Row()));
}

TEST_P(FinalLoadTest, SecondFinalIsForgottenWhenTheFormIsOpenedAgain) {
  GradeFirst(1, 104);
  const auto result = Play("ver\npulsar cmdCancelar\nelegir cboEvaluaciones =4\n" + form_.choice +
                               "pulsar cmdNotaManual1(0)\nver\n",
                           kTutor, 5);
  EXPECT_THAT(FormView(result, 1).Entries(form_.combo), SizeIs(1));
  EXPECT_EQ(FormView(result).Entries(form_.combo), form_.Entries());
}

TEST_P(FinalLoadTest, StoredGradesAreShown) {
  Set(form_.pending, "CodNota=107, CodNotaObservacion=202, RE_AC_DIV=2");
  const auto result = Play("ver\n");
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").at(1),
            form_.Row("7||||Mejora|Adaptacion curricular"));
  EXPECT_THAT(Traffic(result), Contains(Passes(107)));
}

// Nothing is read from the answer, so here a grade that is gone doesn't end the load.
TEST_P(FinalLoadTest, GradeThatIsGoneIsLoadedAndShownAsNothing) {
  GradeFirst(form_.pending, 999);
  const auto result = Play("ver\n");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").at(1), form_.Row());
}

TEST_P(FinalLoadTest, CourseThatIsGoneEndsTheLoadThatAsksIt) {
  const auto result = PlayBehind("sql \"DELETE FROM Curso WHERE IDCurso=32\"\n", "");
  if (!form_.WalksSubjects()) {
    EXPECT_THAT(result.Of("error"), IsEmpty());
    return;
  }
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(Traffic(result).back(), FinalCourse());
}

INSTANTIATE_TEST_SUITE_P(Forms, FinalLoadTest, ::testing::ValuesIn(FinalForms()), kNameOfForm);

/// A course's code of promotion and the caption that nobody sees.
struct Promotion {
  int code;
  const char* caption;
};

void PrintTo(const Promotion& promotion, std::ostream* out) { *out << promotion.code; }

/// The forms that ask the course; promotion decides a caption and nothing more.
class FinalLoadPromotionTest
    : public FinalTest,
      public ::testing::WithParamInterface<std::tuple<FinalForm, Promotion>> {
 protected:
  FinalLoadPromotionTest() : FinalTest(std::get<0>(GetParam())) {}
};

TEST_P(FinalLoadPromotionTest, DecidesACaptionAndMeasuresFollowTheirOwnFlag) {
  const auto& promotion = std::get<1>(GetParam());
  for (const auto measures : {false, true})
    for (const auto& role : {kUnrestricted, kTutor, kTeacher}) {
      school_.Sql("UPDATE Curso SET Promocion=" + std::to_string(promotion.code) +
                  ", RE_AC=" + (measures ? "-1" : "0"));
      const auto form = Shown("", role);
      EXPECT_EQ(form.Text("chkPromocion"), promotion.caption);
      EXPECT_FALSE(form.Visible("chkPromocion"));
      EXPECT_FALSE(form.Visible("fraObservacion(0)"));
      EXPECT_EQ(form.Widths("rtvNotasAlumno").at(6), measures ? 2000 : 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Codes, FinalLoadPromotionTest,
                         ::testing::Combine(::testing::ValuesIn(FinalFormsBySubject()),
                                            ::testing::Values(Promotion{0, "Promoción"},
                                                              Promotion{1, "Promoción"},
                                                              Promotion{2, "Promoción al título"},
                                                              Promotion{3, "Promoción"})),
                         [](const auto& both) {
                           return std::get<0>(both.param).name +
                                  ("Code" + std::to_string(std::get<1>(both.param).code));
                         });

using FinalLoadByStudentTest = OneFinalTest<kFinalByStudent>;

TEST_F(FinalLoadByStudentTest, CaptionOfTheObservationComesFromItsKindOfGrade) {
  school_.Sql("DELETE FROM TipoNota WHERE IDTipoNota=51");
  EXPECT_EQ(Shown().Text("lblNotaManual(1)"), "Observación del tutor:");
}

TEST_F(FinalLoadByStudentTest, TutorSeesAnEmptyObservationAndNobodyThePromotion) {
  for (const auto& role : {kUnrestricted, kTutor, kTeacher}) {
    const auto form = Shown("", role);
    EXPECT_EQ(form.Visible("fraObservacion(0)"), role.section);
    EXPECT_EQ(form.Enabled("cboObservacion"), role.section);
    EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
    EXPECT_FALSE(form.Visible("chkPromocion"));
    EXPECT_EQ(form.Enabled("chkPromocion"), role.section);
  }
}

TEST_F(FinalLoadByStudentTest, StudentsAndSubjectsByTheirOrderWithTheirCourse) {
  school_.Sql("UPDATE Alumno SET OrdenSeccion=10 WHERE IDAlumno=2");
  const auto form = Shown("pulsar cmdSiguiente\n");
  EXPECT_THAT(
      form.Entries("cboAlumnos"),
      ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1", "10 Ñúñez Sanz, Íñigo=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre(form_.headingWalked, "Lengua (1º ESO)|||||| |0|1",
                          "Matemáticas (1º ESO)|||||| |0|2"));
}

using FinalLoadBySubjectTest = OneFinalTest<kFinalBySubject>;

TEST_F(FinalLoadBySubjectTest, RowsAreTheStudentsOfTheSubjectByTheirOrder) {
  school_.Sql("UPDATE Alumno SET OrdenSeccion=10 WHERE IDAlumno=2");
  EXPECT_THAT(Cells(), ElementsAre(form_.heading, form_.Row()));
  EXPECT_THAT(
      Cells("pulsar cmdSiguiente\n"),
      ElementsAre(form_.heading, "2   Díaz Cano, Marta|||||| |1", "10 Ñúñez Sanz, Íñigo|||||| |2"));
}

TEST_F(FinalLoadBySubjectTest, StudentHasOneRowHoweverManySubjectsHeCarries) {
  school_.Evalua(school_.Pendiente(1, 3113, 3), 4);
  EXPECT_THAT(Cells(), ElementsAre(form_.heading, form_.Row(), "2   Díaz Cano, Marta|||||| |1"));
}

TEST_F(FinalLoadBySubjectTest, TwoSectionsOfTheSameSubjectAreTwoSubjects) {
  school_.Evalua(school_.Pendiente(3, 3121, 2), 4);
  const auto form = Shown("pulsar cmdSiguiente\n");
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Lengua (1º ESO)=2", "Lengua (1º ESO)=3",
                          "Matemáticas (1º ESO)=4"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"), ElementsAre(form_.heading, form_.Row()));
  EXPECT_THAT(school_.Rows("SELECT CodMatDet FROM BloqueoPte ORDER BY 1"),
              ElementsAre("3111", "3112", "3113", "3121"));
}

TEST_F(FinalLoadBySubjectTest, ObservationIsNeverFilledAndItsCaptionWaitsForAStudent) {
  for (const auto& role : {kUnrestricted, kTutor, kTeacher}) {
    const auto form = Shown("lista rtvNotasAlumno 1 1\n", role);
    EXPECT_EQ(form.Text("lblNotaManual(1)"), form_.observacion);
    EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
    EXPECT_EQ(form.Enabled("cboObservacion"), role.section);
    EXPECT_EQ(form.Enabled("chkPromocion"), role.section);
  }
  school_.Sql("DELETE FROM TipoNota WHERE IDTipoNota=51");
  EXPECT_EQ(Shown().Text("lblNotaManual(1)"), " al alumno ");
}

using FinalLoadSectionByStudentTest = OneFinalTest<kFinalSectionByStudent>;

TEST_F(FinalLoadSectionByStudentTest, TeacherAlsoGetsSubjectsOtherThanTheChosenOneAndSavesThem) {
  form_ = On(form_, 3113);
  Set(2, "CodNota=104");
  const auto result = Play("pulsar cmdSiguiente\nver\npulsar cmdAceptar\n", kTeacher);
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              Contains("Matemáticas (1º ESO)|4||||| |0|3112"));
  EXPECT_EQ(school_.Stored(2, 4), "104|0|0|-1|-1");
}

TEST_F(FinalLoadSectionByStudentTest, ObservationIsRebuiltForEachStudentOutOfSight) {
  for (const auto& role : {kUnrestricted, kTutor}) {
    const auto form = Shown("pulsar cmdSiguiente\n", role);
    EXPECT_THAT(form.Entries("cboObservacion"), ElementsAre(" =0", "Sigue así=501"));
    EXPECT_FALSE(form.Visible("fraObservacion(0)"));
    EXPECT_FALSE(form.Visible("chkPromocion"));
  }
}

TEST_F(FinalLoadSectionByStudentTest, WithoutAKindOfObservationTheListIsEmpty) {
  school_.Sql("UPDATE TipoNota SET Abreviatura=0 WHERE IDTipoNota=51");
  EXPECT_THAT(Shown().Entries("cboObservacion"), IsEmpty());
}

class FinalLoadSectionBySubjectTest : public OneFinalTest<kFinalSectionBySubject> {
 protected:
  void ExpectUntouchedObservation(const FormView& form) const {
    EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
    EXPECT_EQ(form.Text("lblNotaManual(1)"), form_.observacion);
    EXPECT_FALSE(form.Visible("fraObservacion(0)"));
  }
};

TEST_F(FinalLoadSectionBySubjectTest, StudentIsTakenWhateverHasBecomeOfHim) {
  const auto result = PlayBehind(
      "sql \"UPDATE Alumno SET Anticipado=-1, FechaBaja='01/02/2026', codSeccion=331\"\n", "ver\n");
  EXPECT_EQ(FormView(result).Entries("cboMaterias"), form_.Entries());
}

TEST_F(FinalLoadSectionBySubjectTest, TeacherSeesHisSubjectsAlone) {
  EXPECT_THAT(Entries(kTeacher), ElementsAre("Matemáticas (1º ESO)=1"));
}

// Nobody sees the frame, before, while or after it is rebuilt.
TEST_F(FinalLoadSectionBySubjectTest, ObservationIsRebuiltAtEachEditOutOfSight) {
  for (const auto& role : {kUnrestricted, kTutor}) {
    ExpectUntouchedObservation(Shown("", role));
    for (const auto* const gestures :
         {"lista rtvNotasAlumno 1 1\n", "lista rtvNotasAlumno 1 5\n", "lista rtvNotasAlumno 1 0\n",
          "editar rtvNotasAlumno 1 1 \"7\"\n"}) {
      const auto form = Shown(gestures, role);
      EXPECT_THAT(form.Entries("cboObservacion"), ElementsAre(" =0", "Sigue así=501"));
      EXPECT_EQ(form.Text("lblNotaManual(1)"),
                "Observación del tutor al alumno 2   Díaz Cano, Marta");
      EXPECT_FALSE(form.Visible("fraObservacion(0)"));
      EXPECT_FALSE(form.Visible("chkPromocion"));
    }
  }
}

TEST_F(FinalLoadSectionBySubjectTest, TeacherHasNoObservationRebuilt) {
  const auto form = Shown("lista rtvNotasAlumno 1 1\n", kTeacher);
  ExpectUntouchedObservation(form);
  EXPECT_FALSE(form.Enabled("cboObservacion"));
}

TEST_F(FinalLoadSectionBySubjectTest, WithoutAKindOfObservationNothingIsRebuilt) {
  school_.Sql("UPDATE TipoNota SET Abreviatura=0 WHERE IDTipoNota=51");
  ExpectUntouchedObservation(Shown("lista rtvNotasAlumno 1 1\n"));
}

TEST_F(FinalLoadSectionBySubjectTest, ExceptionalGradesAreOfferedInTheCellsAlone) {
  school_.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota<>104;"
      "UPDATE Nota SET NotaExcepcional=-1 WHERE IDNota IN (104,501)");
  const auto result = Play("lista rtvNotasAlumno 1 1\nver\n");
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"4\",104]]"));
  EXPECT_THAT(FormView(result).Entries("cboObservacion"), ElementsAre(" =0"));
}

}  // namespace
}  // namespace quorvane::test
