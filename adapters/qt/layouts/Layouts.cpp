#include "adapters/qt/layouts/Layouts.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"
#include "adapters/qt/window/FormWindow.h"

namespace quorvane::qt {
namespace {

struct Layout {
  std::string_view form;
  void (*layOut)(Stage&);
  bool holdsWork = false;
  bool idleUnlessAsked = false;
};

constexpr std::array<Layout, 11> kLayouts{{
    {"frmPendientes", LayOutFrmPendientes},
    {.form = "frmAlumnoPendiente", .layOut = LayOutFrmAlumnoPendiente, .holdsWork = true},
    {"frmAlumnos", LayOutFrmAlumnos},
    {"frmAlumnoMateria", LayOutFrmAlumnoMateria},
    {"frmMateriaPend", LayOutFrmMateriaPend},
    {"frmMateriaEv", LayOutFrmMateriaEv},
    {.form = "frmPropMatProf", .layOut = LayOutFrmPropMatProf, .idleUnlessAsked = true},
    {"frmNotaManual1", LayOutFrmNotaManual1},
    {"frmNotaMateria1", LayOutFrmNotaMateria1},
    {"frmNotaSeccionAlumno1", LayOutFrmNotaSeccionAlumno1},
    {"frmNotaSeccionMateria1", LayOutFrmNotaSeccionMateria1},
}};

/// Null for a form without one.
const Layout* LayoutOf(const Form& form) {
  const auto* const found =
      std::find_if(kLayouts.begin(), kLayouts.end(),
                   [&form](const Layout& layout) { return layout.form == form.Name(); });
  return found == kLayouts.end() ? nullptr : found;
}

}  // namespace

bool HasLayout(const Form& form) { return LayoutOf(form) != nullptr; }

bool IsLaidOutForWork(const Form& form) {
  const auto* const layout = LayoutOf(form);
  return layout != nullptr && layout->holdsWork;
}

bool IsIdleUnlessAsked(const Form& form) {
  const auto* const layout = LayoutOf(form);
  return layout != nullptr && layout->idleUnlessAsked;
}

void LayOut(FormWindow& window) {
  Stage stage(window);
  LayoutOf(window.Model())->layOut(stage);
}

}  // namespace quorvane::qt
