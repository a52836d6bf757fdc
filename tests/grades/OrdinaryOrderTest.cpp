#include <ostream>
#include <tuple>

#include "tests/grades/OrdinaryForms.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// The whole order of the statements of a session in each ordinary form, from step one to the last
// DELETE: open, grade the first row of two students or subjects, save, leave step one.

namespace quorvane::test {
namespace {

/// What a session in a form comes to.
struct Order {
  const OrdinaryForm& form;
  Lines (*whole)(const Role& role);   ///< to one who sees the whole section, from `Form_Load` on
  Lines (*taught)(const Role& role);  ///< to the teacher
  const char* taughtChoice;           ///< of step one, where the teacher makes another
};

void PrintTo(const Order* order, std::ostream* out) { *out << order->form.name; }

constexpr auto kMarkBySubject = expected::kMarkBySubject;
constexpr auto kMarkBySection = expected::kMarkBySection;

Lines FirstStudent(const Role& role) { return Grids(role, 1, true, 1); }
Lines NextStudent(const Role& role) { return Grids(role, 1, false, 1); }

const Order kOrderByStudent{
    kByStudent,
    [](const Role& role) {
      return FormLoad(role, 1) + Load(role, 1, 3, {{4, 3113, 3}}) +
             Load(role, 1, 1, {{2, 3111, 1}, {1, 3112, 2}}) + Load(role, 1, 2, {{3, 3111, 1}}) +
             StudentNames({3, 1, 2}) + FirstStudent(role) + Locks(role, 1, {3113, 3111, 3112}) +
             Lines{CellList(role, 1, 4, 0, 1)} + Grids(role, 1, false, 2) +
             Lines{CellList(role, 1, 2, 2, 1)} + SaveByStudent(1, 4, 107, true) +
             SaveByStudent(1, 2, 103, false) + Lines{SaveUngraded(1, 1), SaveUngraded(1, 3)} +
             Leave(role, 1);
    },
    [](const Role& role) {
      return FormLoad(role, 1) + Load(role, 1, 3, {{4, 3113, 3}}) +
             Load(role, 1, 1, {{1, 3112, 2}}) + StudentNames({3, 1}) + FirstStudent(role) +
             Locks(role, 1, {3113, 3112}) + Lines{CellList(role, 1, 4, 0, 1)} + NextStudent(role) +
             Lines{CellList(role, 1, 1, 0, 1)} + SaveByStudent(1, 4, 107, true) +
             SaveByStudent(1, 1, 103, false) + Leave(role, 1);
    },
    ""};

const Order kOrderBySubject{
    kBySubject,
    [](const Role& role) {
      return FormLoadBySubject(role, 1, 3) + Load(role, 1, 3, {{4, 3113, 3}}) +
             Load(role, 1, 1, {{2, 3111, 1}, {1, 3112, 2}}) + Load(role, 1, 2, {{3, 3111, 1}}) +
             SubjectGrid(role, true, {3}) + TakenLocks(role, 1, {3113, 3111, 3112}) +
             TutorPane(role, 1) + Lines{CellList(role, 1, 3113, 0, 1)} +
             SubjectGrid(role, false, {1, 2}) + TutorPane(role, 1) +
             Lines{CellList(role, 1, 3111, 2, 1)} + SaveMarked(role, 1, 4, 107, kMarkBySubject) +
             SaveMarked(role, 1, 2, 103, kMarkBySubject) + SaveNothing(role, 1, 1) +
             SaveNothing(role, 1, 3) + Leave(role, 1);
    },
    [](const Role& role) {
      return FormLoadBySubject(role, 1, 2) + Load(role, 1, 3, {{4, 3113, 3}}) +
             Load(role, 1, 1, {{1, 3112, 2}}) + SubjectGrid(role, true, {3}) +
             TakenLocks(role, 1, {3113, 3112}) + Lines{CellList(role, 1, 3113, 0, 1)} +
             SubjectGrid(role, false, {1}) + Lines{CellList(role, 1, 3112, 0, 1)} +
             SaveMarked(role, 1, 4, 107, kMarkBySubject) +
             SaveMarked(role, 1, 1, 103, kMarkBySubject) + Leave(role, 1);
    },
    ""};

const Order kOrderSectionByStudent{
    kSectionByStudent,
    // The list of the cell that stays current is read once more as the second student is shown.
    [](const Role& role) {
      const Lines list = {CellList(role, 1, 3111, 2, 1)};
      return FormLoadSectionByStudent(role, 1) + Load(role, 1, 3, {}, 3111) +
             Load(role, 1, 1, {{2, 3111, 1}}, 3111) + Load(role, 1, 2, {{3, 3111, 1}}, 3111) +
             StudentNames({1, 2}) + FirstStudent(role) + TakenLocks(role, 1, {3111}) + list +
             NextStudent(role) + list + list + SaveMarked(role, 1, 2, 107, kMarkBySection) +
             SaveMarked(role, 1, 3, 103, kMarkBySection) + Leave(role, 1);
    },
    // He has chosen 3113, which student 1 doesn't have: he gets his other subject of that student.
    [](const Role& role) {
      const Lines list = {CellList(role, 1, 3112, 0, 1)};
      return FormLoadSectionByStudent(role, 1) + Load(role, 1, 3, {{4, 3113, 3}}) +
             Load(role, 1, 1, {{1, 3112, 2}}) + StudentNames({3, 1}) + FirstStudent(role) +
             TakenLocks(role, 1, {3113, 3112}) + Lines{CellList(role, 1, 3113, 0, 1)} +
             NextStudent(role) + list + list + SaveMarked(role, 1, 4, 107, kMarkBySection) +
             SaveMarked(role, 1, 1, 103, kMarkBySection) + Leave(role, 1);
    },
    "elegir cboMateria =3113\n"};

const Order kOrderSectionBySubject{
    kSectionBySubject,
    // Each subject that is shown begins an edit: the pane of the tutor is filled, and the list of
    // the cell that stays current is read.
    [](const Role& role) {
      const auto edit = TutorPane(role, 1) + Lines{CellList(role, 1, 3112, 0, 1)};
      return FormLoadSectionBySubject(role, 1, 1) + Load(role, 1, 1, {{2, 3111, 1}, {1, 3112, 2}}) +
             SubjectGrid(role, true, {1}) + TutorPane(role, 1) + TakenLocks(role, 1, {3111, 3112}) +
             TutorPane(role, 1) + Lines{CellList(role, 1, 3111, 2, 1)} +
             SubjectGrid(role, false, {1}) + edit + edit +
             SaveMarked(role, 1, 2, 107, kMarkBySection) +
             SaveMarked(role, 1, 1, 103, kMarkBySection) + Leave(role, 1);
    },
    // He has one subject of this student: going on shows no other.
    [](const Role& role) {
      const Lines list = {CellList(role, 1, 3112, 0, 1)};
      return FormLoadSectionBySubject(role, 1, 1) + Load(role, 1, 1, {{1, 3112, 2}}) +
             SubjectGrid(role, true, {1}) + TakenLocks(role, 1, {3112}) + list + list +
             SaveMarked(role, 1, 1, 103, kMarkBySection) + Leave(role, 1);
    },
    ""};

/// Each form on each engine.
class OrdinaryOrderTest : public ::testing::TestWithParam<std::tuple<const Order*, bool>> {
 protected:
  OrdinaryOrderTest() {
    if (std::get<bool>(GetParam())) school_.FlagsOfSqlServer();
  }

  static Role As(const Role& role) { return OnEngine(role, std::get<bool>(GetParam())); }

  /// `choice` is that of step one, where it isn't the form's.
  [[nodiscard]] Lines Session(const Role& role, const char* choice = "") const {
    auto form = form_;
    if (*choice != '\0') form.choice = choice;
    return Traffic(RunScript(school_,
                             form.Open() + "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdSiguiente\n"
                                           "editar rtvNotasAlumno 1 1 \"3\"\npulsar cmdAceptar\n"
                                           "pulsar cmdNotaManual1(1)\n",
                             SessionOf(role)));
  }
  [[nodiscard]] Lines ToStepTwo(const Role& role) const { return form_.stepOneTraffic(role, 1); }

  const Order& order_ = *std::get<const Order*>(GetParam());
  const OrdinaryForm& form_ = order_.form;
  GradeSchool school_;
};

TEST_P(OrdinaryOrderTest, UnrestrictedUserGradesTheWholeSection) {
  const auto role = As(kUnrestricted);
  EXPECT_THAT(Session(role), ElementsAreArray(ToStepTwo(role) + order_.whole(role)));
}

TEST_P(OrdinaryOrderTest, TutorGradesTheWholeSection) {
  const auto role = As(kTutor);
  EXPECT_THAT(Session(role), ElementsAreArray(ToStepTwo(role) + order_.whole(role)));
}

TEST_P(OrdinaryOrderTest, TeacherGradesHisOwnSubjects) {
  const auto role = As(kTeacher);
  EXPECT_THAT(Session(role, order_.taughtChoice),
              ElementsAreArray(ToStepTwo(role) + order_.taught(role)));
}

INSTANTIATE_TEST_SUITE_P(Forms, OrdinaryOrderTest,
                         ::testing::Combine(::testing::Values(&kOrderByStudent, &kOrderBySubject,
                                                              &kOrderSectionByStudent,
                                                              &kOrderSectionBySubject),
                                            ::testing::Bool()),
                         [](const auto& test) {
                           return std::get<0>(test.param)->form.name +
                                  std::string(std::get<1>(test.param) ? "OnSqlServer"
                                                                      : "OnFileDatabase");
                         });

}  // namespace
}  // namespace quorvane::test
