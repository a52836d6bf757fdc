#include "tests/selection/StepOne.h"

#include <algorithm>

#include "tests/support/ExpectedStatements.h"

namespace quorvane::test {

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

ScriptResult OwnListTest::ChooseEvaluation(int evaluation, const ScriptOptions& options,
                                           const std::string& before) const {
  return Play(school, dialog_,
              "elegir cboCursos =32\n" + before +
                  "elegir cboSecciones =321\nelegir cboEvaluaciones =" +
                  std::to_string(evaluation) + "\nver",
              options);
}

Lines OwnListTest::Read(const ScriptResult& result) {
  const auto chosen = std::find_if(result.lines.begin(), result.lines.end(), [](const auto& line) {
    return line.starts_with("> elegir cboEvaluaciones");
  });
  return Statements({chosen, result.lines.end()});
}

Lines OwnListTest::Asks(int evaluation, const Lines& statements) {
  Lines lines = {Sql(expected::kFinalAndOrder, {evaluation})};
  if (evaluation == 5) lines.push_back(Sql(expected::kFirstFinalOfList, {-1}));
  return lines + statements;
}

}  // namespace quorvane::test
