#include "grades/Usuario.h"

#include "frame/cConfiguracion.h"
#include "platform/Connection.h"

namespace quorvane {
namespace {

Connection& Centro() { return *cConfiguracion::Instancia().conLocalCentro; }

std::string Usuario() { return std::to_string(cConfiguracion::Instancia().intIDUsuario); }

}  // namespace

std::int32_t PersonalDelUsuario(const std::string& columna) {
  const auto recordset =
      Centro().Execute("SELECT IDPersonal FROM Personal WHERE " + columna + "=" + Usuario());
  return recordset.Eof() ? 0 : recordset.Fields("IDPersonal").Long();
}

bool EsTutor(std::int32_t seccion) {
  return !Centro()
              .Execute("SELECT IDPersonal FROM Personal WHERE CodUsuario=" + Usuario() +
                       " AND IDPersonal IN (SELECT CodTutor FROM Seccion WHERE IDSeccion=" +
                       std::to_string(seccion) + ")")
              .Eof();
}

}  // namespace quorvane
