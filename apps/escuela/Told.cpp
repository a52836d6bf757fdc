#include "apps/escuela/Told.h"

#include "adapters/odbc/Secrets.h"
#include "platform/text/VisibleText.h"

namespace quorvane {

std::string Told(const std::string& message) { return VisibleText(odbc::WithoutSecrets(message)); }

}  // namespace quorvane
