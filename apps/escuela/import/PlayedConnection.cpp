#include "apps/escuela/import/PlayedConnection.h"

#include "platform/RuntimeError.h"

namespace quorvane {

void PlayedConnection::Open() {
  if (!actual_.IsOpen())
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "Se ha perdido la conexión con la base de datos. No se ha importado nada");
}

}  // namespace quorvane
