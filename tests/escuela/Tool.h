#pragma once

#include <csignal>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "tests/support/RunCommand.h"

namespace quorvane::test {

/// The signals that end a tool from outside.
inline constexpr int kEndingSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

/// Runs the schools' tool to its end.
inline Outcome Escuela(const std::string& arguments) {
  return RunCommand(QUORVANE_ESCUELA " " + arguments);
}

/// How often a text has that part.
inline int Occurrences(const std::string& text, const std::string& part) {
  auto count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
    ++count;
  return count;
}

/// A program with its arguments as a process of its own; what it prints goes nowhere. `prepare` is
/// done there before it runs.
inline pid_t StartQuietly(
    std::vector<std::string> arguments, void (*prepare)() = [] {}) {
  std::vector<char*> pointers;
  for (auto& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const auto process = fork();
  if (process != 0) return process;
  for (const auto number : kEndingSignals) std::signal(number, SIG_DFL);
  const auto nowhere = open("/dev/null", O_RDWR);
  dup2(nowhere, STDOUT_FILENO);
  dup2(nowhere, STDERR_FILENO);
  prepare();
  execv(pointers.front(), pointers.data());
  _exit(127);
}

}  // namespace quorvane::test
