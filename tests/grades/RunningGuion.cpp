#include "tests/grades/RunningGuion.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/TestConnection.h"

namespace quorvane::test {

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

}  // namespace quorvane::test
