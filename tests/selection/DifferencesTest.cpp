#include <map>

#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

/// The statements that tell the dialogs apart, each by a short name.
std::string ShortName(const std::string& statement) {
  static const std::map<std::string, std::string> names = {
      {Sql(kAllTypes), "types"},
      {Sql(kRecoveries, {3}), "recoveries"},
      {Sql(kAllCourses, {3}), "courses"},
      {Sql(kOrdinaryEvaluations), "ordinary"},
      {Sql(kTutor, {1, 321}), "tutor"},
      {Sql(kFinalOfFormer, {1}), "final of former"},
      {Sql(kFollowUp, {321}), "follow-up"},
      {Sql(kEvaluations, {321, 321}), "evaluations"},
      {Sql(kFinalOfChosen, {2}), "final of chosen"},
      {Sql(kFinalAndOrder, {2}), "final and order"}};
  const auto found = names.find(statement);
  if (found != names.end()) return found->second;
  if (statement.starts_with("sql centro SELECT DISTINCT MateriaDetalles.")) return "subjects";
  if (statement.starts_with("sql centro SELECT IDAlumno,")) return "students";
  return statement;
}

std::string ShortNames(const Lines& lines) {
  std::string names;
  for (const auto& statement : Statements(lines))
    names += (names.empty() ? "" : ", ") + ShortName(statement);
  return names;
}

/// Where the four dialogs differ, a row each. A school with recoveries and follow-up, profile 0.
struct Differences {
  std::string caption;     ///< of the choice of its own
  std::string opening;     ///< the statements of the opening
  std::string section;     ///< those of choosing the section again, after an ordinary evaluation
  std::string evaluation;  ///< those of choosing an ordinary evaluation then
  std::string recovery;    ///< the box then
  std::string button;      ///< the way on then
  std::string refusal;     ///< outside the date window

  bool operator==(const Differences&) const = default;
};

void PrintTo(const Differences& row, std::ostream* out) {
  *out << "\n  caption:    " << row.caption << "\n  opening:    " << row.opening
       << "\n  section:    " << row.section << "\n  evaluation: " << row.evaluation
       << "\n  recovery:   " << row.recovery << "\n  button:     " << row.button
       << "\n  refusal:    " << row.refusal;
}

Differences Observe(const Dialog& dialog) {
  const PendingSchool school;
  school.Sql(
      "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
      "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321;"
      "UPDATE Usuario SET CodPadre=0, AdminSistema=0;"
      "INSERT INTO FechaNotas (FechaInicio, FechaFin, CodSeccion, CodNumEvaluacion) VALUES "
      "('1990/01/01','1990/01/02',321,1)");
  const auto shown =
      Play(school, dialog, Choose(dialog, 1) + kSection + "\n" + Evaluation(2) + "\nver");
  const auto refused = Play(school, dialog, Choose(dialog, 1) + kNext);
  const auto message = refused.Of("mensaje");
  const auto error = refused.Of("error");
  const FormView view(shown);
  Differences row;
  row.caption = view.Has("lblNotamanual1(4)") ? view.Text("lblNotamanual1(4)") : "";
  row.opening = ShortNames(shown.After("nodo " + std::to_string(dialog.node)));
  row.section = ShortNames(shown.After(kSection));
  row.evaluation = ShortNames(shown.After(Evaluation(2)));
  row.recovery = view.Visible("chkRecuperacion") ? "shown" : "hidden";
  row.button = view.Enabled("cmdNotaManual1(0)") ? "free" : "barred";
  row.refusal = message.empty() ? "error " + error.at(0).substr(0, 3) : message.at(0);
  return row;
}

TEST(DifferencesTest, SideBySide) {
  const std::string message =
      R"(exclamacion "Zendria Escuela" "La fecha de la evaluación se ha superado")";
  EXPECT_EQ(Observe(kByStudent),
            (Differences{"", "types, recoveries, courses, ordinary", "final of former, evaluations",
                         "final of chosen", "hidden", "free", message}));
  EXPECT_EQ(Observe(kBySubject),
            (Differences{"", "types, courses, ordinary", "final of former, evaluations",
                         "final of chosen", "hidden", "free", message}));
  EXPECT_EQ(Observe(kSectionByStudent),
            (Differences{"(*) Materia:", "types, recoveries, courses, ordinary",
                         "tutor, final of former, follow-up, evaluations",
                         "final and order, follow-up, subjects", "shown", "barred", "error 326"}));
  EXPECT_EQ(Observe(kSectionBySubject),
            (Differences{"(*) Alumno:", "types, recoveries, courses, ordinary",
                         "tutor, final of former, follow-up, evaluations",
                         "final and order, follow-up, students", "hidden", "barred", "error 326"}));
}

}  // namespace
}  // namespace quorvane::test
