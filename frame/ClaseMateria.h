#pragma once

#include <cstdint>

namespace quorvane {

// The kind of a subject: `CodEspecificarTipoMateria` of its row in `TipoMateria`, a fixed code that
// is the same in all schools. Statements write the codes out, as "CodEspecificarTipoMateria=5".
namespace ClaseMateria {

inline constexpr std::int32_t kOrdinaria = 1;
inline constexpr std::int32_t kValores = 3;      ///< values and attitudes, the tutor's
inline constexpr std::int32_t kFct = 4;          ///< work centres
inline constexpr std::int32_t kObservacion = 5;  ///< no subject: the tutor's observation

/// Whether the grade forms show subjects of that kind: all but the tutor's.
constexpr bool SeCalifica(std::int32_t clase) { return clase != kValores; }

/// What the grade forms take for a work centre, `cMateria::Fct`: whatever they show that isn't
/// ordinary, also a code that nobody has defined.
constexpr bool CuentaComoFct(std::int32_t clase) {
  return clase != kOrdinaria && SeCalifica(clase);
}

}  // namespace ClaseMateria

}  // namespace quorvane
