#include <cstddef>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "tests/grades/FinalForm.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/OrdinaryForms.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"
#include "tests/support/Replay.h"
#include "tests/support/TestConnection.h"

// What all eight grade forms do alike.

namespace quorvane::test {
namespace {

using School = std::unique_ptr<PendingSchool>;

School SchoolOf(const GradeForm& form) {
  if (form.IsFinal()) return std::make_unique<FinalSchool>();
  return std::make_unique<GradeSchool>();
}

std::vector<GradeForm> AllForms() {
  return {kByStudent,      kBySubject,      kSectionByStudent,      kSectionBySubject,
          kFinalByStudent, kFinalBySubject, kFinalSectionByStudent, kFinalSectionBySubject};
}

/// One of the forms, played by the tutor.
class GradeFormsTest : public ::testing::TestWithParam<GradeForm> {
 protected:
  [[nodiscard]] ScriptResult Play(const std::string& gestures, const std::string& before = "",
                                  const ScriptOptions& user = SessionOf(kTutor)) const {
    return RunScript(*school_, form_.Open(before) + gestures, user);
  }
  /// What it shows then, whatever a session before has left locked.
  [[nodiscard]] FormView Shown(const std::string& gestures = "") const {
    school_->DropPublications();
    return FormView(Play(gestures + "ver\n"));
  }

  const GradeForm& form_ = GetParam();
  const School school_ = SchoolOf(form_);
};

INSTANTIATE_TEST_SUITE_P(Eight, GradeFormsTest, ::testing::ValuesIn(AllForms()), kNameOfForm);

TEST_P(GradeFormsTest, DialogHasItsCaptionsAndControls) {
  const auto view = Shown();
  EXPECT_EQ(view.Form(), form_.name);
  EXPECT_EQ(view.Title(), "Introducción de notas. Paso 2 de 2");
  EXPECT_EQ(view.Text(form_.IsFinal() ? "fraNota" : "fraNota(0)"), "Notas del Alumno:");
  EXPECT_EQ(view.Text("cmdAceptar"), "Aceptar");
  EXPECT_EQ(view.Text("cmdCancelar"), "Cancelar");
  EXPECT_EQ(view.Text("fraAniCarga"), form_.loading);
  EXPECT_FALSE(view.Visible("fraAniCarga"));
  for (const auto* const control :
       {form_.combo, "cmdAceptar", "cmdCancelar", "cmdAnterior", "cmdSiguiente", "rtvNotasAlumno"})
    EXPECT_TRUE(view.Enabled(control) && view.Visible(control)) << control;
}

TEST_P(GradeFormsTest, ClosedSchoolYearCanBeReadAndNotSaved) {
  auto closed = SessionOf(kTutor);
  closed.activa = false;
  const auto result = Play(
      "ver\n" + form_.toLengua + "pulsar cmdSiguiente\npulsar cmdAceptar\npulsar cmdCancelar\n", "",
      closed);
  const FormView view(result);
  EXPECT_FALSE(view.Enabled("cmdAceptar"));
  EXPECT_TRUE(view.Enabled(form_.combo) && view.Enabled("cmdCancelar"));
  EXPECT_THAT(view.Entries(form_.combo), SizeIs(form_.entries));
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("pulsar cmdAceptar")));
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("UPDATE"))));
}

TEST_P(GradeFormsTest, NothingToGradeEndsInItsMessageAndLocksNothing) {
  const auto result =
      Play("ver\n", "sql \"DELETE FROM EvaluacionPte\"\nsql \"DELETE FROM EvaluacionActaPte\"\n");
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  EXPECT_THAT(result.Of("pitido"), SizeIs(1));
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("INSERT"))));
  EXPECT_EQ(school_->Held(), "0|0");
  const FormView stepOne(result);
  EXPECT_EQ(stepOne.Form(), form_.stepOne);
  EXPECT_EQ(stepOne.Index("cboSecciones"), 0) << "step one keeps its choices";
  EXPECT_THAT(stepOne.Entries("cboEvaluaciones")
                  .at(static_cast<std::size_t>(stepOne.Index("cboEvaluaciones"))),
              ::testing::EndsWith("=" + std::to_string(form_.evaluacion)));
}

// By subject a final form has asked the course by then.
TEST_P(GradeFormsTest, OwnPublicationRefusesTheForm) {
  school_->Sql(PublicationOf(2, form_.evaluacion));
  const auto result = Play("ver\npulsar cmdNotaManual1(1)\n");
  Lines messages = {kInUse};
  if (form_.secondMessage) messages.push_back(form_.NothingToGrade());
  EXPECT_THAT(result.Of("mensaje"), ElementsAreArray(messages));
  EXPECT_THAT(result.Of("pitido"), SizeIs(messages.size()));
  EXPECT_EQ(FormView(result).Form(), form_.stepOne);
  auto asked = Lines{Sql(expected::kOwnPublication, {2, 321, form_.evaluacion})};
  if (form_.IsFinal() && form_.WalksSubjects()) asked.push_back(FinalCourse());
  EXPECT_THAT(Traffic(result), ElementsAreArray(form_.stepOneTraffic(kTutor, form_.evaluacion) +
                                                asked + Leave(kTutor, 0)));
  EXPECT_THAT(school_->Rows("SELECT IDPublicacionPte FROM PublicacionPte"), ElementsAre("7"))
      << "nothing of another publication is deleted";
}

TEST_P(GradeFormsTest, PublicationOfAnotherUserIsNoObstacle) {
  school_->Sql(PublicationOf(3, form_.evaluacion));
  const auto result = Play("ver\n");
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_EQ(FormView(result).Form(), form_.name);
  EXPECT_THAT(Traffic(result), Contains(Sql(expected::kPublish, {8, 1, 2, form_.evaluacion})));
}

TEST_P(GradeFormsTest, SubjectOfTheTutorsKindIsLeftOutAndNotLocked) {
  const auto before = Shown();
  for (const int student : {1, 3})
    school_->Evalua(school_->Pendiente(student, 3115, 3), form_.evaluacion);
  const auto view = Shown();
  EXPECT_EQ(view.Entries(form_.combo), before.Entries(form_.combo));
  EXPECT_EQ(view.Cells("rtvNotasAlumno"), before.Cells("rtvNotasAlumno"));
  EXPECT_THAT(view.Cells("rtvNotasAlumno"), SizeIs(2));
  EXPECT_THAT(school_->Rows("SELECT CodMatDet FROM BloqueoPte"), Not(Contains("3115")));
}

TEST_P(GradeFormsTest, ButtonsAndArrowKeysWalkTheEntriesAndStopAtTheEnds) {
  const auto at = [this](const std::string& gestures) {
    return Shown(gestures).Index(form_.combo);
  };
  const int last = form_.entries - 1;
  EXPECT_EQ(at(""), 0);
  EXPECT_EQ(at("pulsar cmdAnterior\n"), 0);
  EXPECT_EQ(at("tecla 38\n"), 0);
  EXPECT_EQ(at("pulsar cmdSiguiente\n"), 1);
  EXPECT_EQ(at("tecla 40\n"), 1);
  EXPECT_EQ(at("tecla 40\ntecla 40\n"), last);
  EXPECT_EQ(at("tecla 40\ntecla 40\ntecla 40\npulsar cmdSiguiente\n"), last);
  EXPECT_EQ(at("pulsar cmdSiguiente\npulsar cmdSiguiente\ntecla 38\n"), last - 1);
  EXPECT_EQ(at("tecla 40\ntecla 38\n"), 0);
  EXPECT_EQ(at("tecla 37\n"), 0) << "other keys pass";
  EXPECT_EQ(at("tecla 39\n"), 0);
}

TEST_P(GradeFormsTest, ProgramLivesOnAfterAFailure) {
  // The 30th statement is one of the load.
  const auto result = RunScript(*school_,
                                "fallo 30\n" + form_.Open() + form_.Open() +
                                    "ver\npulsar cmdCancelar\npulsar cmdNotaManual1(1)\n",
                                SessionOf(kTutor));
  EXPECT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
  EXPECT_EQ(FormView(result).Form(), form_.name);
  EXPECT_THAT(result.Of("vuelve"), Contains(std::to_string(form_.node)));
}

// Every statement of a session, in as many parts as can be run side by side.
constexpr std::size_t kShares = 4;

class GradeFormsFailureTest : public ::testing::TestWithParam<std::tuple<GradeForm, std::size_t>> {
 protected:
  /// So that saving takes each of its ways as far as the form has the subjects: one pending row is
  /// graded and takes the mark, one leaves it to a later evaluation, one gives it to an earlier
  /// one.
  School Prepared() const {
    auto school = SchoolOf(form_);
    if (form_.IsFinal()) {
      school->Sql(
          "DELETE FROM EvaluacionActaPte WHERE CodNumEvaluacion=4 AND CodAlumnoPte_MatDet=1");
      for (const auto pending : {1, 2}) school->Evalua(pending, 6);
      school->Sql(
          "UPDATE EvaluacionActaPte SET CodNota=105, Evaluado=-1, UltimaEvaluada=-1 WHERE "
          "(CodNumEvaluacion=6 AND CodAlumnoPte_MatDet=1) OR (CodNumEvaluacion=4 AND "
          "CodAlumnoPte_MatDet=2);"
          "UPDATE NumEvaluacion SET Orden=8 WHERE IDNumEvaluacion=5");
    } else {
      school->Evalua(1, 3);
      school->Sql(
          "UPDATE EvaluacionPte SET CodNota=105, Evaluado=-1, UltimaEvaluada=-1 WHERE "
          "CodNumEvaluacion=3 AND CodAlumnoPte_MatDet=1;"
          "UPDATE EvaluacionPte SET CodNota=105, Evaluado=-1 WHERE CodNumEvaluacion=1 AND "
          "CodAlumnoPte_MatDet=3;"
          "UPDATE EvaluacionPte SET CodNota=103, Evaluado=-1 WHERE CodNumEvaluacion=2 AND "
          "CodAlumnoPte_MatDet=1");
    }
    return school;
  }

  [[nodiscard]] std::string Open() const { return form_.Open(form_.evaluacion + 1); }
  /// Of the session; with `before`, gestures before it.
  [[nodiscard]] ScriptResult Session(const PendingSchool& school,
                                     const std::string& before = "") const {
    return RunScript(school,
                     before + Open() +
                         "editar rtvNotasAlumno 1 1 =107\npulsar cmdSiguiente\n"
                         "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n",
                     SessionOf(kTutor));
  }

  const GradeForm& form_ = std::get<0>(GetParam());
};

TEST_P(GradeFormsFailureTest, OfAnyStatementSurfacesAndLeavesWhatWasWritten) {
  const auto all = Traffic(Session(*Prepared()));
  const auto statements = Statements(all).size();
  ASSERT_GT(statements, form_.IsFinal() ? 40U : 55U);
  const auto expected = Prepared();
  auto replayed = all.begin();
  for (auto k = std::get<1>(GetParam()); k <= statements; k += FailureStride(kShares)) {
    const auto failure = "fallo " + std::to_string(k);
    SCOPED_TRACE(failure);
    const auto school = Prepared();
    const auto result = Session(*school, failure + "\n");
    // The error surfaces with its number, and nothing more is executed.
    ASSERT_EQ(result.status, 1);
    ASSERT_THAT(result.Of("error"), ElementsAre("-2147467259 fallo"));
    ASSERT_THAT(result.Of("mensaje"), IsEmpty()) << "a failed insert is no message";
    const auto traffic = Traffic(result);
    const auto failed = all.begin() + static_cast<std::ptrdiff_t>(traffic.size()) - 1;
    ASSERT_THAT(traffic, ElementsAreArray(all.begin(), failed + 1));
    // What was written until then stays: publication, locks, grades.
    Replay(*expected, {replayed, failed});
    replayed = failed;
    ASSERT_EQ(school->Modulo(), expected->Modulo());
    // The locks that remained are listed; once they are removed the form opens again.
    ASSERT_EQ(school->Locks(), expected->Locks());
    school->RemoveLocks();
    ASSERT_THAT(school->Locks(), IsEmpty());
    const auto opened = RunScript(*school, Open() + "ver\n", SessionOf(kTutor));
    ASSERT_EQ(opened.status, 0) << opened.Text();
    const FormView again(opened);
    ASSERT_EQ(again.Form(), form_.name);
    // Student 3 has nothing in the second ordinary evaluation.
    ASSERT_THAT(again.Entries(form_.combo), SizeIs(form_.IsFinal() ? form_.entries : 2));
  }
}

INSTANTIATE_TEST_SUITE_P(Eight, GradeFormsFailureTest,
                         ::testing::Combine(::testing::ValuesIn(AllForms()),
                                            ::testing::Range<std::size_t>(1, kShares + 1)),
                         [](const auto& part) {
                           return std::get<0>(part.param).name +
                                  ("Part" + std::to_string(std::get<1>(part.param)));
                         });

/// Those forms on the file database and on the other engine.
class GradeFormsNobodyTest : public ::testing::TestWithParam<std::tuple<GradeForm, bool>> {};

// A user without staff who chose as the unrestricted one before his profile changed: the only way
// to get this far. A chosen student is found all the same, but none of his subjects.
TEST_P(GradeFormsNobodyTest, OfTheStaffGetsNothing) {
  const auto& [form, sqlServer] = GetParam();
  const auto school = SchoolOf(form);
  if (sqlServer) school->FlagsOfSqlServer();
  const auto role = OnEngine(kNoStaff, sqlServer);
  const auto chooser = OnEngine(kUnrestricted, sqlServer);
  auto stepOne = form.stepOneTraffic(chooser, form.evaluacion);
  // The user is asked for when step one is left.
  *(stepOne.end() - 2) = SqlOfUsers(expected::kUser, {role.user});
  const auto result =
      RunScript(*school, form.Open("sesion usuario=4 perfil=3\n") + "pulsar cmdNotaManual1(1)\n",
                SessionOf(chooser));
  EXPECT_THAT(Traffic(result), ElementsAreArray(stepOne + form.nobodysLoad(role) + Leave(role, 0)));
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(form.NothingToGrade()));
}

INSTANTIATE_TEST_SUITE_P(Eight, GradeFormsNobodyTest,
                         ::testing::Combine(::testing::ValuesIn(AllForms()), ::testing::Bool()),
                         [](const auto& both) {
                           return std::string(std::get<0>(both.param).name) +
                                  (std::get<1>(both.param) ? "OnSqlServer" : "OnFileDatabase");
                         });

}  // namespace
}  // namespace quorvane::test
