#include "tests/kills/Program.h"

#include <array>
#include <cstdio>
#include <stdexcept>
#include <sys/wait.h>

namespace quorvane::test {

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

ProgramResult RunProgram(const std::string& command) {
  auto* const output = popen((command + " 2>&1").c_str(), "re");
  if (output == nullptr) throw std::runtime_error("No se puede ejecutar " + command);
  ProgramResult result;
  std::array<char, 4096> buffer{};
  for (auto size = std::fread(buffer.data(), 1, buffer.size(), output); size > 0;
       size = std::fread(buffer.data(), 1, buffer.size(), output))
    result.printed.append(buffer.data(), size);
  const auto status = pclose(output);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

}  // namespace quorvane::test
