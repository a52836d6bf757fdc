#include <csignal>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "tests/grades/OrdinaryForms.h"
#include "tests/support/FormView.h"
#include "tests/support/Matchers.h"
#include "tests/support/TestConnection.h"

// Two programs on one school: who sees what, and what a program that is killed leaves.

namespace quorvane::test {
namespace {

/// The script player as a program of its own, for users who work at once. It is killed and waited
/// for with the object.
class RunningGuion {
 public:
  RunningGuion(const GradeSchool& school, int usuario, int perfil, const std::string& script);
  ~RunningGuion();
  RunningGuion(RunningGuion&&) = delete;

  /// Reads what it prints up to that line, which has to come.
  void AwaitLine(const std::string& line);
  void Stop() const;
  void GoOn() const;
  void Kill();
  /// Reads to the end; gives back its exit status, -1 when it was killed.
  int Finish();

  /// All that it has printed as far as it was read.
  [[nodiscard]] const std::vector<std::string>& Printed() const noexcept { return lines_; }

 private:
  bool ReadLine();

  std::string scriptFile_;
  pid_t process_ = -1;
  int output_ = -1;
  std::string unread_;
  std::vector<std::string> lines_;
};

RunningGuion::RunningGuion(const GradeSchool& school, int usuario, int perfil,
                           const std::string& script)
    : scriptFile_(school.Path() + "." + std::to_string(usuario) + ".guion") {
  std::ofstream(scriptFile_) << script;
  const auto user = std::to_string(usuario);
  const auto profile = std::to_string(perfil);
  const auto* const option = ThroughOdbc() ? "--odbc" : "--bd";
  const auto place = ThroughOdbc() ? OdbcString(school.Path()) : school.Path();
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("pipe");
  process_ = fork();
  if (process_ == 0) {
    dup2(ends[1], STDOUT_FILENO);
    close(ends[0]);
    close(ends[1]);
    execl(QUORVANE_GUION, QUORVANE_GUION, option, place.c_str(), "--usuario", user.c_str(),
          "--perfil", profile.c_str(), scriptFile_.c_str(), nullptr);
    _exit(127);
  }
  close(ends[1]);
  output_ = ends[0];
}

RunningGuion::~RunningGuion() {
  Kill();
  close(output_);
  std::error_code ignored;
  std::filesystem::remove(scriptFile_, ignored);
}

bool RunningGuion::ReadLine() {
  auto end = unread_.find('\n');
  while (end == std::string::npos) {
    char buffer[4096];
    const auto count = read(output_, buffer, sizeof buffer);
    if (count <= 0) return false;
    unread_.append(buffer, static_cast<std::size_t>(count));
    end = unread_.find('\n');
  }
  lines_.push_back(unread_.substr(0, end));
  unread_.erase(0, end + 1);
  return true;
}

void RunningGuion::AwaitLine(const std::string& line) {
  while (ReadLine())
    if (lines_.back() == line) return;
  throw std::runtime_error("it never printed: " + line);
}

void RunningGuion::Stop() const {
  int status = 0;
  kill(process_, SIGSTOP);
  waitpid(process_, &status, WUNTRACED);
}

void RunningGuion::GoOn() const { kill(process_, SIGCONT); }

void RunningGuion::Kill() {
  if (process_ < 0) return;
  kill(process_, SIGKILL);
  static_cast<void>(Finish());
}

int RunningGuion::Finish() {
  while (ReadLine()) {
  }
  int status = 0;
  waitpid(process_, &status, 0);
  process_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

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
                       kByStudent.Open() +
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
                        kByStudent.Open() + "editar rtvNotasAlumno 1 1 =107\n" + kPause +
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
  EXPECT_EQ(school_.Held(), "0|0");
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
