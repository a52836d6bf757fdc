#include "tests/support/ScriptRun.h"

#include <algorithm>
#include <sstream>

#include "apps/quorvane-guion/PlayScript.h"
#include "frame/modGeneral.h"
#include "tests/support/Matchers.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

guion::PlayOptions PlayOptions(const TestSchool& school, const ScriptOptions& options) {
  guion::PlayOptions play;
  PlayOn(play, school.Path(), options.entrada);
  play.host.usuario = options.usuario;
  play.host.perfil = options.perfil;
  play.host.centro = options.centro;
  play.host.activa = options.activa ? 1 : 0;
  play.host.sqlServer = options.sqlServer;
  play.host.hoy = options.hoy;
  return play;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace

ScriptResult RunScript(const TestSchool& school, const std::string& script,
                       const ScriptOptions& options) {
  gblnMostrarAnchoNotas = false;
  std::istringstream commands(script);
  std::ostringstream out;
  std::ostringstream errors;
  ScriptResult result;
  result.status = guion::PlayScript(PlayOptions(school, options), commands, out, errors);
  result.lines = Lines(out.str());
  result.errors = errors.str();
  return result;
}

void ExpectError(const ScriptResult& result, int number) {
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith(std::to_string(number) + " ")))
      << result.Text();
}

std::vector<std::string> ScriptResult::Of(const std::string& word) const {
  std::vector<std::string> found;
  for (const auto& line : lines) {
    if (line == word)
      found.emplace_back();
    else if (line.starts_with(word + " "))
      found.push_back(line.substr(word.size() + 1));
  }
  return found;
}

std::vector<std::string> ScriptResult::Sql(const std::string& connection) const {
  return Of("sql " + connection);
}

std::vector<std::string> ScriptResult::After(const std::string& command) const {
  const auto isEcho = [](const std::string& line) { return line.starts_with("> "); };
  const auto last = std::find(lines.rbegin(), lines.rend(), "> " + command);
  if (last == lines.rend()) return {};
  return {last.base(), std::find_if(last.base(), lines.end(), isEcho)};
}

std::string ScriptResult::Text() const {
  auto text = errors;
  for (const auto& line : lines) text += line + "\n";
  return text;
}

}  // namespace quorvane::test
