#include "adapters/qt/window/HeldWork.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/controls/Form.h"

namespace quorvane::qt {

bool HoldsWork(const Form& form) {
  static constexpr std::array<std::string_view, 9> kForms{
      "frmAlumnoPendiente",        "frmNotaManual",
      "frmNotaManualFinal",        "frmNotaMateria",
      "frmNotaMateriaFinal",       "frmNotaSeccionAlumno",
      "frmNotaSeccionMateria",     "frmNotaSeccionAlumnoFinal",
      "frmNotaSeccionMateriaFinal"};
  return std::find(kForms.begin(), kForms.end(), form.Name()) != kForms.end();
}

}  // namespace quorvane::qt
