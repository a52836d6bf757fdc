#include "grades/grid/Anchos.h"

#include "platform/RuntimeError.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Value.h"

namespace quorvane {

void Anchos::Crecer(std::int32_t columna) {
  if (columna >= static_cast<std::int32_t>(anchos_.size()))
    anchos_.resize(static_cast<std::size_t>(columna) + 1);
}

void Anchos::Guardar(const Retivo& rejilla, bool cargando, bool siempre) {
  if (cargando && !siempre) return;
  try {
    for (std::size_t columna = 0; columna < anchos_.size(); ++columna)
      anchos_[columna] = ToInteger(rejilla.ColWidth(static_cast<int>(columna)));
  } catch (const RuntimeError&) {
    return;
  }
}

void Anchos::Restaurar(Retivo& rejilla, bool cargando) const {
  if (cargando) return;
  for (std::size_t columna = 0; columna < anchos_.size(); ++columna)
    rejilla.ColWidth(static_cast<int>(columna), anchos_[columna]);
}

}  // namespace quorvane
