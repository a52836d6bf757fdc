#include "frame/Usuario.h"

#include "frame/cConfiguracion.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {
namespace {

std::int32_t Personal(const Recordset& fila) {
  return fila.Eof() ? 0 : fila.Fields("IDPersonal").Long();
}

}  // namespace

std::int32_t PersonalDelUsuario(Connection& centro) {
  return Personal(centro.Execute(Sql("SELECT IDPersonal FROM Personal WHERE CodUsuario={}",
                                     cConfiguracion::Instancia().intIDUsuario)));
}

std::int32_t PersonalDelPublicador(Connection& centro) {
  return Personal(centro.Execute(Sql("SELECT IDPersonal FROM Personal WHERE codUsuario={}",
                                     cConfiguracion::Instancia().intIDUsuario)));
}

bool EsTutor(Connection& centro, std::int32_t seccion) {
  const auto& configuracion = cConfiguracion::Instancia();
  const auto fila = centro.Execute(Sql(
      "SELECT IDPersonal FROM Personal WHERE CodUsuario={} AND IDPersonal IN (SELECT CodTutor FROM Seccion WHERE IDSeccion={})",
      configuracion.intIDUsuario, seccion));
  return !fila.Eof() || configuracion.intIDPerfil <= 0;
}

}  // namespace quorvane
