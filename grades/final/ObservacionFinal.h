#pragma once

#include <cstdint>

#include "platform/data/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

class Connection;

/// Walks the kinds of grade that are abbreviations, in all marking systems of the type of teaching,
/// and stops at each that is the tutor's observation.
class Observaciones {
 public:
  Observaciones(Connection& centro, std::int32_t tipo);

  /// Goes to the next one; False behind the last. Error 3021 for a kind of grade whose kind of
  /// subject is gone.
  [[nodiscard]] bool Siguiente();

 private:
  [[nodiscard]] bool EsObservacion() const;

  Connection& centro_;
  Recordset tipos_;
  bool empezado_ = false;
};

/// What the handlers of `cboObservacion` and `chkPromocion` come to once they have found the
/// student: he has neither `Observacion` nor `Promocion`, which is error 438.
[[noreturn]] void SinMiembro(const cAlumno& alumno);

}  // namespace quorvane
