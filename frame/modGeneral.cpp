#include "frame/modGeneral.h"

#include "platform/data/Connection.h"

namespace quorvane {

bool gblnMostrarAnchoNotas = false;

std::int32_t ObtenerSiguienteId(Connection& conexion, Connection* /*conexionBorrado*/,
                                const std::string& sentenciaMaximo) {
  const auto mayor = conexion.Execute(sentenciaMaximo);
  if (mayor.Eof() || mayor.Fields(0).IsNull()) return 1;
  return Value(std::int64_t{mayor.Fields(0).Long()} + 1).Long();
}

}  // namespace quorvane
