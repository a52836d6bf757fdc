#include "platform/text/StringTable.h"

#include "platform/RuntimeError.h"

namespace quorvane {

std::string LoadString(int id) {
  if (id == kTitleString) return "Zendria Escuela";
  throw RuntimeError(ErrorNumber::MissingResource,
                     "No se encuentra el recurso con el identificador " + std::to_string(id));
}

}  // namespace quorvane
