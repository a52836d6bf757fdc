#pragma once

#include <string>

namespace quorvane::test {

struct ProgramResult {
  int status = 0;
  std::string printed;  ///< on both its outputs
};

/// Runs a command of the shell to its end.
ProgramResult RunProgram(const std::string& command);

/// A text as one word of the shell.
std::string Quoted(const std::string& text);

}  // namespace quorvane::test
