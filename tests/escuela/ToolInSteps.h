#pragma once

#include <csignal>
#include <string>
#include <sys/types.h>
#include <vector>

namespace quorvane::test {

/// The signals that end a tool from outside.
inline constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

/// A tool that runs from one of its calls of the system to the next that is asked for, so that a
/// signal reaches it there and nowhere else. Killed with the object where it hasn't ended.
class ToolInSteps {
 public:
  /// Whether this machine lets a process follow another's calls: some containers don't.
  static bool IsAllowed();

  /// The program and its arguments; what it prints goes nowhere. It stands before its first call.
  explicit ToolInSteps(std::vector<std::string> arguments);
  ~ToolInSteps();
  ToolInSteps(const ToolInSteps&) = delete;
  ToolInSteps& operator=(const ToolInSteps&) = delete;
  ToolInSteps(ToolInSteps&&) = delete;
  ToolInSteps& operator=(ToolInSteps&&) = delete;

  /// Goes on to where it is about to make one of these calls, by their numbers (`__NR_...`); with
  /// `path`, to one that is given a path with that part. False when it has ended before.
  bool RunTo(const std::vector<long>& calls, const std::string& path = {});
  /// Sends a signal, and lets its handler end.
  void Interrupt(int number);
  /// Lets it run to its end; the status as of `waitpid`.
  int Finish();

 private:
  bool Step(int signal);
  [[nodiscard]] std::string TextAt(unsigned long address) const;

  pid_t process_ = -1;
  int status_ = 0;
  bool ended_ = false;
  int pending_ = 0;  ///< a signal that it stopped at, and hasn't had yet
};

}  // namespace quorvane::test
