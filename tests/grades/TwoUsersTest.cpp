#include "tests/grades/RunningGuion.h"
#include "tests/support/FormView.h"
#include "tests/support/Matchers.h"

// Two programs on one school: who sees what, and what a program that is killed leaves.

namespace quorvane::test {
namespace {

/// Keeps a program busy, without any hold on the file, for as long as it takes to stop it.
const std::string kPause =
    "sql \"WITH RECURSIVE c(x) AS (SELECT 1 UNION ALL SELECT x+1 FROM c WHERE x<6000000) SELECT "
    "COUNT(*) FROM c\"";

/// The teacher of 3112 and 3113 with his form open, a grade chosen and not saved.
class TwoUsersTest : public ::testing::Test {
 protected:
  void TeacherHasHisFormOpen() {
    teacher_.AwaitLine("> " + kPause);
    teacher_.Stop();
  }

  /// The tutor opens, looks, grades what is left and leaves.
  std::vector<std::string> Tutor() {
    RunningGuion tutor(school_, 2, 3,
                       Open() +
                           "ver\neditar rtvNotasAlumno 1 1 =105\npulsar cmdAceptar\n"
                           "pulsar cmdNotaManual1(1)\n");
    EXPECT_EQ(tutor.Finish(), 0);
    return tutor.Printed();
  }

  static std::vector<std::string> Students(const std::vector<std::string>& printed) {
    return FormView(ScriptResult{printed, 0, ""}).Entries("cboAlumnos");
  }

  GradeSchool school_;
  RunningGuion teacher_{school_, 3, 3,
                        Open() + "editar rtvNotasAlumno 1 1 =107\n" + kPause +
                            "\npulsar cmdAceptar\npulsar cmdNotaManual1(1)\n"};
};

TEST_F(TwoUsersTest, SecondSeesWhatTheFirstHasNotLockedAndNeitherDisturbsTheOther) {
  TeacherHasHisFormOpen();
  EXPECT_THAT(Students(Tutor()), ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
  EXPECT_EQ(school_.Stored(2, 1), "105|0|0|0|0|-1|-1");
  EXPECT_EQ(school_.Stored(4, 1), "0|0|0|0|0|0|0") << "the teacher hasn't saved yet";
  EXPECT_THAT(school_.Rows("SELECT CodMatDet FROM BloqueoPte ORDER BY 1"),
              ElementsAre("3112", "3113"))
      << "the tutor took his own locks with him and no other";
  teacher_.GoOn();
  EXPECT_EQ(teacher_.Finish(), 0);
  EXPECT_EQ(school_.Stored(4, 1), "107|0|0|0|0|-1|-1");
  EXPECT_EQ(school_.Stored(2, 1), "105|0|0|0|0|-1|-1");
  EXPECT_THAT(school_.Rows("SELECT * FROM BloqueoPte"), IsEmpty());
  EXPECT_THAT(school_.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
}

TEST_F(TwoUsersTest, KilledProgramLeavesItsPublicationAndItsLocksUntilTheyAreRemoved) {
  TeacherHasHisFormOpen();
  teacher_.Kill();
  EXPECT_THAT(school_.Locks(),
              ElementsAre("1|Luis Gil Mora|1ª Evaluación|Matemáticas (A)|Francés (A)"));
  EXPECT_THAT(Students(Tutor()), ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
  EXPECT_EQ(school_.Stored(4, 1), "0|0|0|0|0|0|0") << "what was chosen and not saved is lost";
  school_.RemoveLocks();
  EXPECT_THAT(school_.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
  EXPECT_THAT(Students(Tutor()), ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1",
                                             "3   Ñúñez Sanz, Íñigo=2"));
}

}  // namespace
}  // namespace quorvane::test
