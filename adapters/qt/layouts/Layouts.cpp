#include "adapters/qt/layouts/Layouts.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "adapters/qt/FormWindow.h"
#include "adapters/qt/layouts/FormLayouts.h"
#include "adapters/qt/layouts/Stage.h"

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

}  // namespace

bool LayOut(FormWindow& window) {
  const std::string_view name = window.Model().Name();
  const auto* const found =
      std::find_if(kLayouts.begin(), kLayouts.end(),
                   [name](const auto& layout) { return layout.first == name; });
  if (found == kLayouts.end()) return false;
  Stage stage(window);
  found->second(stage);
  return true;
}

}  // namespace quorvane::qt
