#pragma once

#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace quorvane::test {

/// What a program starts with.
struct ProcessSetting {
  std::map<std::string, std::string> environment;  ///< what it has besides; empty texts unset
  std::vector<int> ignored;  ///< the signals that it ignores from its start, as under `nohup`
  std::string output;        ///< a file for both its outputs; nowhere when empty
};

/// A program in a process of its own, killed with the object if it still runs.
class Process {
 public:
  explicit Process(const std::vector<std::string>& words, const ProcessSetting& setting);
  ~Process();
  Process(Process&&) = delete;

  void Signal(int signal) const;
  /// How it has ended, as `waitpid` tells; none while it runs.
  [[nodiscard]] std::optional<int> Ended();

 private:
  pid_t pid_;
  std::optional<int> ended_;
};

}  // namespace quorvane::test
