#include "frame/modGeneral.h"

#include "platform/data/Connection.h"

namespace quorvane {

bool gblnMostrarAnchoNotas = false;

std::int32_t ObtenerSiguienteId(Connection& conexion, Connection* /*conexionBorrado*/,
                                const std::string& tabla, const std::string& campo) {
  const auto recordset = conexion.Execute("SELECT MAX(" + campo + ") FROM [" + tabla + "]");
  if (recordset.Eof() || recordset.Fields(0).IsNull()) return 1;
  return Value(std::int64_t{recordset.Fields(0).Long()} + 1).Long();
}

}  // namespace quorvane
