#include "grades/Usuario.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/data/Connection.h"

namespace quorvane {

std::int32_t PersonalDelUsuario(const std::string& columna) {
  const auto& configuracion = cConfiguracion::Instancia();
  const auto recordset = Centro().Execute("SELECT IDPersonal FROM Personal WHERE " + columna + "=" +
                                          std::to_string(configuracion.intIDUsuario));
  return recordset.Eof() ? 0 : recordset.Fields("IDPersonal").Long();
}

}  // namespace quorvane
