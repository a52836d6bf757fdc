#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace quorvane {

/// A step-two form as step one sees it: what it writes on the form before it shows it. Each member
/// creates the form's global instance if there is none.
struct PasoDos {
  std::function<void(const std::string&)> mstrCaption;
  std::function<void()> Mostrar;  ///< shows the form modally
};

/// The same of a form for final evaluations.
struct PasoDosFinal : PasoDos {
  std::function<void(std::int32_t)> mlngIdEvaluacionJunio;
  std::function<void(bool)> mblnFinalSeptiembre;
};

// The step-two forms. The layer that owns each form defines its function, so that step one need
// not know them.

PasoDos PasoDosFrmNotaManual();
PasoDos PasoDosFrmNotaMateria();
PasoDos PasoDosFrmNotaSeccionAlumno();
PasoDos PasoDosFrmNotaSeccionMateria();
PasoDosFinal PasoDosFrmNotaManualFinal();
PasoDosFinal PasoDosFrmNotaMateriaFinal();
PasoDosFinal PasoDosFrmNotaSeccionAlumnoFinal();
PasoDosFinal PasoDosFrmNotaSeccionMateriaFinal();

}  // namespace quorvane
