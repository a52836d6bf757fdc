#include "grades/final/ObservacionFinal.h"

#include "frame/ClaseMateria.h"
#include "frame/cConfiguracion.h"
#include "grades/final/CargaFinal.h"
#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

Observaciones::Observaciones(Connection& centro, std::int32_t tipo)
    : centro_(centro),
      tipos_(centro.Execute(Sql(
          "SELECT IDTipoNota, Nombre, Orden FROM TipoNota WHERE Abreviatura={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})) ORDER BY Orden",
          cConfiguracion::Instancia().NumeroVerdadero(), tipo))) {}

bool Observaciones::Siguiente() {
  if (empezado_) tipos_.MoveNext();
  empezado_ = true;
  while (!tipos_.Eof() && !EsObservacion()) tipos_.MoveNext();
  return !tipos_.Eof();
}

bool Observaciones::EsObservacion() const {
  const auto clase = centro_.Execute(Sql(
      "SELECT CodEspecificartipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT CodTipoMateria FROM TipoNota WHERE IDTipoNota={})",
      tipos_.Fields("IDTipoNota").Long()));
  return clase.Fields("CodEspecificartipoMateria").Long() == ClaseMateria::kObservacion;
}

void SinMiembro(const cAlumno& /*alumno*/) { throw RuntimeError(ErrorNumber::MissingMember); }

}  // namespace quorvane
