#pragma once

#include <array>
#include <cstdio>
#include <fstream>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/wait.h>

namespace quorvane::test {

/// How a program has ended, and what it printed on both its outputs.
struct Outcome {
  int status = -1;  ///< -1 when it was killed
  std::string text;
};

/// For a failing test's message.
inline void PrintTo(const Outcome& outcome, std::ostream* out) {
  *out << "status " << outcome.status << ", printing " << outcome.text;
}

/// Runs a command of the shell to its end.
inline Outcome RunCommand(const std::string& command) {
  auto* const output = popen((command + " 2>&1").c_str(), "re");
  if (output == nullptr) throw std::runtime_error("No se puede ejecutar " + command);
  Outcome outcome;
  std::array<char, 4096> buffer{};
  for (std::size_t read = 0; (read = fread(buffer.data(), 1, buffer.size(), output)) > 0;)
    outcome.text.append(buffer.data(), read);
  const auto status = pclose(output);
  if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
  return outcome;
}

/// A text as one word of the shell.
inline std::string Quoted(const std::string& text) { return "'" + text + "'"; }

/// The bytes of a file.
inline std::string Content(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

}  // namespace quorvane::test
