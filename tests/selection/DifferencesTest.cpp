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

/// Where the four dialogs differ, on a school with recoveries and follow-up, for profile 0.
Lines Observe(const Dialog& dialog) {
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
  return {"caption: " + (view.Has("lblNotamanual1(4)") ? view.Text("lblNotamanual1(4)") : ""),
          "opening: " + ShortNames(shown.After("nodo " + std::to_string(dialog.node))),
          // Choosing the section again, after an ordinary evaluation.
          "section: " + ShortNames(shown.After(kSection)),
          "evaluation: " + ShortNames(shown.After(Evaluation(2))),
          std::string("recovery: ") + (view.Visible("chkRecuperacion") ? "shown" : "hidden"),
          std::string("button: ") + (view.Enabled("cmdNotaManual1(0)") ? "free" : "barred"),
          // Outside the date window.
          "refusal: " + (message.empty() ? "error " + error.at(0).substr(0, 3) : message.at(0))};
}

TEST(DifferencesTest, SideBySide) {
  const std::string message =
      R"(refusal: exclamacion "Zendria Escuela" "La fecha de la evaluación se ha superado")";
  EXPECT_THAT(Observe(kByStudent),
              ElementsAre("caption: ", "opening: types, recoveries, courses, ordinary",
                          "section: final of former, evaluations", "evaluation: final of chosen",
                          "recovery: hidden", "button: free", message));
  EXPECT_THAT(Observe(kBySubject),
              ElementsAre("caption: ", "opening: types, courses, ordinary",
                          "section: final of former, evaluations", "evaluation: final of chosen",
                          "recovery: hidden", "button: free", message));
  EXPECT_THAT(Observe(kSectionByStudent),
              ElementsAre("caption: (*) Materia:", "opening: types, recoveries, courses, ordinary",
                          "section: tutor, final of former, follow-up, evaluations",
                          "evaluation: final and order, follow-up, subjects", "recovery: shown",
                          "button: barred", "refusal: error 326"));
  EXPECT_THAT(Observe(kSectionBySubject),
              ElementsAre("caption: (*) Alumno:", "opening: types, recoveries, courses, ordinary",
                          "section: tutor, final of former, follow-up, evaluations",
                          "evaluation: final and order, follow-up, students", "recovery: hidden",
                          "button: barred", "refusal: error 326"));
}

}  // namespace
}  // namespace quorvane::test
