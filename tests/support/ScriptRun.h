#pragma once

#include <string>
#include <vector>

#include "tests/support/TestSchool.h"

namespace quorvane::test {

struct ScriptOptions {
  int usuario = 1;
  int perfil = 0;
  int centro = 1;
  bool activa = true;
  bool sqlServer = false;
  std::string hoy = {};      ///< dd/mm/yyyy, or empty
  std::string entrada = {};  ///< file with `Usuario`; the school itself when empty
};

/// What a script printed, a line an event, and how it ended.
struct ScriptResult {
  std::vector<std::string> lines;
  int status = 0;
  std::string errors;  ///< what kept the script from being played

  /// The statements on that connection, without their "sql NAME ".
  [[nodiscard]] std::vector<std::string> Sql(const std::string& connection = "centro") const;
  /// The lines that begin with that word, without it: "mensaje", "ver", "lista", "error" ...
  [[nodiscard]] std::vector<std::string> Of(const std::string& word) const;
  /// The lines that follow the LAST echo "> COMMAND" up to the next echo (or the end).
  [[nodiscard]] std::vector<std::string> After(const std::string& command) const;
  [[nodiscard]] std::string Text() const;  ///< all lines, for a failing test's message
};

/// Runs a script of user gestures against the real module on that school, in this process, and
/// drops all forms afterwards, as the end of a program would.
ScriptResult RunScript(const TestSchool& school, const std::string& script,
                       const ScriptOptions& options = {});

/// That it has told one error, of that number.
void ExpectError(const ScriptResult& result, int number);

}  // namespace quorvane::test
