#include "apps/escuela/Refusal.h"

#include "platform/RuntimeError.h"

namespace quorvane {

void Refuse(const std::string& text) { throw RuntimeError(ErrorNumber::StatementFailed, text); }

void RefuseToCreate(const std::string& path, const std::string& reason) {
  Refuse("No se puede crear " + path + ": " + reason);
}

void RefuseToWrite(const std::string& path, const std::string& reason) {
  Refuse("No se puede escribir " + path + ": " + reason);
}

}  // namespace quorvane
