#include "tests/selection/StepOne.h"

#include <nlohmann/json.hpp>

namespace quorvane::test {
namespace {

using Json = nlohmann::json;

Json Control(const std::string& json, const std::string& name) {
  return Json::parse(json).at("controles").at(name);
}

ScriptOptions Session(int user, int profile) {
  ScriptOptions options;
  options.usuario = user;
  options.perfil = profile;
  return options;
}

}  // namespace

PendingSchool::PendingSchool() {
  for (const auto student : {1, 2, 4}) Registra(321, student);
  Registra(331, 5);
  static_cast<void>(Pendiente(1, 3111, 1));
  static_cast<void>(Pendiente(1, 3112, 2));
  static_cast<void>(Pendiente(2, 3111, 1));
  static_cast<void>(Pendiente(2, 3116, 2));
  static_cast<void>(Pendiente(4, 3111, 1));
  static_cast<void>(Pendiente(5, 3211, 1));
  for (const auto pending : {1, 2, 3, 5, 6}) Evalua(pending, 1);
  Evalua(3, 2);
  for (const auto pending : {1, 2, 3, 4, 5, 6})
    for (const auto evaluation : {4, 5}) Evalua(pending, evaluation);
  Profesor(2, 3112);
}

ScriptOptions Unrestricted() { return Session(1, 0); }
ScriptOptions Tutor() { return Session(2, 3); }
ScriptOptions Teacher() { return Session(3, 3); }
ScriptOptions NoStaff() { return Session(4, 3); }

ScriptResult Play(const TestSchool& school, const Dialog& dialog, const std::string& commands,
                  const ScriptOptions& options) {
  return RunScript(school, "nodo " + std::to_string(dialog.node) + "\n" + commands + "\n", options);
}

std::string Choose(const Dialog& dialog, int evaluation) {
  auto commands = "elegir cboCursos =32\nelegir cboSecciones =321\nelegir cboEvaluaciones =" +
                  std::to_string(evaluation) + "\n";
  if (dialog.BySection())
    commands += std::string("elegir ") + dialog.choice + " " + dialog.entry + "\n";
  return commands;
}

std::vector<std::string> Statements(const std::vector<std::string>& lines) {
  std::vector<std::string> statements;
  for (const auto& line : lines)
    if (line.starts_with("sql ")) statements.push_back(line.substr(4));
  return statements;
}

std::vector<std::string> First(std::vector<std::string> lines, std::size_t count) {
  if (lines.size() > count) lines.resize(count);
  return lines;
}

std::string Fill(const std::string& text, std::initializer_list<long> numbers) {
  auto filled = text;
  for (const auto number : numbers) filled.replace(filled.find("{}"), 2, std::to_string(number));
  return filled;
}

View::View(const ScriptResult& result) {
  const auto views = result.Of("ver");
  if (views.empty()) throw std::runtime_error("nothing was shown:\n" + result.Text());
  json_ = views.back();
}

std::vector<std::string> View::Entries(const std::string& list) const {
  std::vector<std::string> entries;
  const auto control = Control(json_, list);
  for (const auto& entry : control.at("entradas"))
    entries.push_back(entry.at(0).get<std::string>() + "=" +
                      std::to_string(entry.at(1).get<int>()));
  return entries;
}

int View::Index(const std::string& list) const { return Control(json_, list).at("indice"); }

bool View::Enabled(const std::string& control) const {
  return Control(json_, control).at("activo");
}

bool View::Visible(const std::string& control) const {
  return Control(json_, control).at("visible");
}

std::string View::Caption(const std::string& control) const {
  return Control(json_, control).at("texto");
}

int View::Value(const std::string& checkBox) const { return Control(json_, checkBox).at("valor"); }

bool View::Has(const std::string& control) const {
  return Json::parse(json_).at("controles").contains(control);
}

std::string View::Title() const { return Json::parse(json_).at("titulo"); }

}  // namespace quorvane::test
