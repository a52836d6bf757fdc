#include "apps/zendria/StepOneChoice.h"

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "frame/cNombreNodo.h"
#include "platform/controls/ComboBox.h"
#include "platform/data/Connection.h"

namespace quorvane::zendria {
namespace {

void Pick(const Form& form, const char* name, std::int32_t data) {
  auto* const combo = dynamic_cast<ComboBox*>(form.Find(name));
  if (combo == nullptr || data == 0 || !combo->Usable()) return;
  for (int i = 0; i < combo->ListCount(); ++i)
    if (combo->ItemData(i) == data) return combo->ListIndex(i);
}

}  // namespace

StepOneChoice::StepOneChoice(qt::QtFrontEnd& screen, Connection& school, const GradeTarget& target)
    : screen_(screen), before_(screen.WindowShown), target_(target) {
  const auto rows = school.Execute(
      "SELECT Curso.IDCurso, Curso.CodTipoEnsenanza FROM Seccion INNER JOIN Curso ON "
      "Curso.IDCurso=Seccion.CodCurso WHERE Seccion.IDSeccion=" +
      std::to_string(target.section));
  if (!rows.Eof()) {
    course_ = rows.Fields(0).Long();
    teaching_ = rows.Fields(1).Long();
  }
  screen_.WindowShown = [this](qt::FormWindow& window) {
    if (!chosen_) Choose(window);
    if (before_) before_(window);
  };
}

StepOneChoice::~StepOneChoice() { screen_.WindowShown = before_; }

std::uint8_t StepOneChoice::Node() const {
  return target_.subject == 0 ? cNombreNodo().NotaPendientesAlumno
                              : cNombreNodo().NotaPendientesSeccionMateria;
}

void StepOneChoice::Choose(qt::FormWindow& window) {
  chosen_ = true;
  const auto& form = window.Model();
  screen_.Gesture(window, [&] {
    Pick(form, "cboTipoEnsenanza", teaching_);
    Pick(form, "cboCursos", course_);
    Pick(form, "cboSecciones", target_.section);
    Pick(form, "cboEvaluaciones", target_.evaluation);
    Pick(form, "cboMateria", target_.subject);
  });
}

}  // namespace quorvane::zendria
