#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

#include "tests/grades/GradeSchool.h"

namespace quorvane::test {

/// The script player as a program of its own, for users who work at once. It is killed and waited
/// for with the object.
class RunningGuion {
 public:
  RunningGuion(const GradeSchool& school, int usuario, int perfil, const std::string& script);
  ~RunningGuion();
  RunningGuion(const RunningGuion&) = delete;
  RunningGuion& operator=(const RunningGuion&) = delete;
  RunningGuion(RunningGuion&&) = delete;
  RunningGuion& operator=(RunningGuion&&) = delete;

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

}  // namespace quorvane::test
