#include "grades/saving/Intentos.h"

#include "platform/RuntimeError.h"
#include "platform/host/MessageBox.h"

namespace quorvane {

void InsertarConIntentos(const std::string& mensaje, const std::function<std::int32_t()>& intento) {
  constexpr auto kRepetida = static_cast<std::int32_t>(ErrorNumber::StatementFailed);
  for (auto numero = intento(); numero != 0; numero = intento()) {
    if (numero == kRepetida) continue;
    BeepAndMessage(mensaje, MessageIcon::Critical);
    return;
  }
}

}  // namespace quorvane
