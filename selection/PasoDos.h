#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// A step-two form as step one sees it: what it writes on the form before it shows it. Each member
/// creates the form's global instance if there is none. Lives as long as the program.
class PasoDos {
 public:
  PasoDos() = default;
  virtual ~PasoDos() = default;
  PasoDos(const PasoDos&) = delete;
  PasoDos& operator=(const PasoDos&) = delete;
  PasoDos(PasoDos&&) = delete;
  PasoDos& operator=(PasoDos&&) = delete;

  virtual void mstrCaption(const std::string& caption) = 0;
  virtual void Mostrar() = 0;  ///< shows the form modally
};

/// The same of a form for final evaluations.
class PasoDosFinal : public PasoDos {
 public:
  virtual void mlngIdEvaluacionJunio(std::int32_t id) = 0;
  virtual void mblnFinalSeptiembre(bool segunda) = 0;
};

// The step-two forms. The layer that has them says what each is, so that step one need not know
// them.

PasoDos& PasoDosFrmNotaManual();
PasoDos& PasoDosFrmNotaMateria();
PasoDos& PasoDosFrmNotaSeccionAlumno();
PasoDos& PasoDosFrmNotaSeccionMateria();
PasoDosFinal& PasoDosFrmNotaManualFinal();
PasoDosFinal& PasoDosFrmNotaMateriaFinal();
PasoDosFinal& PasoDosFrmNotaSeccionAlumnoFinal();
PasoDosFinal& PasoDosFrmNotaSeccionMateriaFinal();

}  // namespace quorvane
