#include "grades/final/ObservacionFinal.h"

#include <string>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/data/Connection.h"

namespace quorvane {

void RecorrerObservaciones(std::int32_t tipo, const std::function<void()>& alEncontrar) {
  constexpr std::int32_t kClaseObservacion = 5;
  const auto& configuracion = cConfiguracion::Instancia();
  auto tipos = Centro().Execute(
      "SELECT IDTipoNota, Nombre, Orden FROM TipoNota WHERE Abreviatura=" +
      configuracion.Verdadero() +
      " AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion "
      "IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza=" +
      std::to_string(tipo) + ")) ORDER BY Orden");
  for (; !tipos.Eof(); tipos.MoveNext()) {
    const auto clase = Centro().Execute(
        "SELECT CodEspecificartipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT "
        "CodTipoMateria FROM TipoNota WHERE IDTipoNota=" +
        std::to_string(tipos.Fields("IDTipoNota").Long()) + ")");
    if (clase.Fields("CodEspecificartipoMateria").Long() == kClaseObservacion) alEncontrar();
  }
}

}  // namespace quorvane
