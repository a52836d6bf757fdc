#include "adapters/qt/layouts/Layouts.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"
#include "adapters/qt/window/FormWindow.h"

namespace quorvane::qt {
namespace {

using Layout = void (*)(Stage&);

constexpr std::array<std::pair<std::string_view, Layout>, 11> kLayouts{{
    {"frmPendientes", LayOutFrmPendientes},
    {"frmAlumnoPendiente", LayOutFrmAlumnoPendiente},
    {"frmAlumnos", LayOutFrmAlumnos},
    {"frmAlumnoMateria", LayOutFrmAlumnoMateria},
    {"frmMateriaPend", LayOutFrmMateriaPend},
    {"frmMateriaEv", LayOutFrmMateriaEv},
    {"frmPropMatProf", LayOutFrmPropMatProf},
    {"frmNotaManual1", LayOutFrmNotaManual1},
    {"frmNotaMateria1", LayOutFrmNotaMateria1},
    {"frmNotaSeccionAlumno1", LayOutFrmNotaSeccionAlumno1},
    {"frmNotaSeccionMateria1", LayOutFrmNotaSeccionMateria1},
}};

Layout LayoutOf(const Form& form) {
  const std::string_view name = form.Name();
  const auto* const found =
      std::find_if(kLayouts.begin(), kLayouts.end(),
                   [name](const auto& layout) { return layout.first == name; });
  return found == kLayouts.end() ? nullptr : found->second;
}

}  // namespace

bool HasLayout(const Form& form) { return LayoutOf(form) != nullptr; }

void LayOut(FormWindow& window) {
  Stage stage(window);
  LayoutOf(window.Model())(stage);
}

}  // namespace quorvane::qt
