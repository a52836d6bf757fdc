#include "apps/zendria/StepOneChoice.h"

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "platform/controls/ComboBox.h"
#include "platform/data/Connection.h"

namespace quorvane::zendria {
namespace {

/// False where there is no such list, or not that entry in it.
bool Pick(const Form& form, const char* name, std::int32_t data) {
  auto* const combo = dynamic_cast<ComboBox*>(form.Find(name));
  if (combo == nullptr || data == 0 || !combo->Usable()) return false;
  for (int i = 0; i < combo->ListCount(); ++i) {
    if (combo->ItemData(i) != data) continue;
    combo->ListIndex(i);
    return true;
  }
  return false;
}

}  // namespace

StepOneChoice::StepOneChoice(qt::QtFrontEnd& screen, Connection& school, const GradeRoute& route)
    : screen_(screen), before_(screen.WindowShown), route_(route) {
  const auto rows = school.Execute(
      "SELECT Curso.IDCurso, Curso.CodTipoEnsenanza FROM Seccion INNER JOIN Curso ON "
      "Curso.IDCurso=Seccion.CodCurso WHERE Seccion.IDSeccion=" +
      std::to_string(route.section));
  if (!rows.Eof()) {
    course_ = rows.Fields(0).Long();
    teaching_ = rows.Fields(1).Long();
  }
  screen_.WindowShown = [this](qt::FormWindow& window) {
    if (!chosen_)
      Choose(window);
    else if (!studentChosen_)
      ChooseStudent(window);
    if (before_) before_(window);
  };
}

StepOneChoice::~StepOneChoice() { screen_.WindowShown = before_; }

void StepOneChoice::Choose(qt::FormWindow& window) {
  chosen_ = true;
  const auto& form = window.Model();
  screen_.Gesture(window, [&] {
    Pick(form, "cboTipoEnsenanza", teaching_);
    Pick(form, "cboCursos", course_);
    Pick(form, "cboSecciones", route_.section);
    Pick(form, "cboEvaluaciones", route_.evaluation);
    Pick(form, "cboMateria", route_.subject);
    studentChosen_ = route_.student == 0 || Pick(form, "cboAlumno", route_.student);
  });
}

void StepOneChoice::ChooseStudent(qt::FormWindow& window) {
  studentChosen_ = true;
  const auto& form = window.Model();
  screen_.Gesture(window, [&] { Pick(form, "cboAlumnos", route_.student); });
}

}  // namespace quorvane::zendria
