#pragma once

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>
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
  explicit Process(const std::vector<std::string>& words, const ProcessSetting& setting)
      : pid_(fork()) {
    if (pid_ < 0) throw std::runtime_error("no process");
    if (pid_ == 0) Become(words, setting);
  }
  ~Process() {
    if (Ended()) return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  Process(Process&&) = delete;

  void Signal(int signal) const {
    if (!ended_) kill(pid_, signal);
  }
  /// How it has ended, as `waitpid` tells; none while it runs.
  [[nodiscard]] std::optional<int> Ended() {
    int status = 0;
    if (!ended_ && waitpid(pid_, &status, WNOHANG) == pid_) ended_ = status;
    return ended_;
  }

 private:
  [[noreturn]] static void Become(const std::vector<std::string>& words,
                                  const ProcessSetting& setting) {
    // Tests that are broken off leave no program behind.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const auto signal : {SIGHUP, SIGINT, SIGTERM}) std::signal(signal, SIG_DFL);
    for (const auto signal : setting.ignored) std::signal(signal, SIG_IGN);
    for (const auto& [name, value] : setting.environment)
      value.empty() ? unsetenv(name.c_str()) : setenv(name.c_str(), value.c_str(), 1);
    constexpr auto kMode = 0600;
    const auto* const file = setting.output.empty() ? "/dev/null" : setting.output.c_str();
    const auto output = open(file, O_WRONLY | O_CREAT | O_APPEND, kMode);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    std::vector<char*> arguments;
    for (const auto& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
  }

  pid_t pid_;
  std::optional<int> ended_;
};

}  // namespace quorvane::test
