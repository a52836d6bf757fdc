#include "apps/escuela/PatientWork.h"

#include <algorithm>
#include <chrono>
#include <string_view>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/OutcomeUnknown.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

constexpr std::chrono::seconds kPatience(5);

/// Of a file that is written to, of one whose tables change, and of the table of either server.
constexpr const char* kHeld[] = {"database is locked", "database table is locked",
                                 "database schema is locked", "[55P03]", "(1222)"};

constexpr std::string_view kLost = "Se ha perdido la conexión con la base de datos";

}  // namespace

std::unique_ptr<Connection> OpenForPiece(const SchoolAddress& address,
                                         SchoolAddress::Access access) {
  auto school = address.Connect("", access);
  if (auto* const file = dynamic_cast<sqlite::SqliteConnection*>(school.get()))
    file->BusyWait(kPatience);
  school->Open();
  const auto engine = EngineReached(*school);
  if (engine == sqltext::Engine::PostgreSql)
    school->Execute("SET lock_timeout='" + std::to_string(kPatience.count()) + "s'");
  if (engine == sqltext::Engine::SqlServer)
    school->Execute("SET LOCK_TIMEOUT " + std::to_string(kPatience.count() * 1000));
  return school;
}

void TellIfHeldOrLost(const std::function<void()>& work) {
  try {
    work();
  } catch (const OutcomeUnknown&) {
    throw;
  } catch (const RuntimeError& error) {
    const auto text = error.Description();
    if (text.starts_with(kLost))
      throw RuntimeError(ErrorNumber::StatementFailed,
                         std::string(kLost) +
                             ", y no se ha cambiado nada. Compruebe la red y que el servidor está "
                             "en marcha, y repítalo" +
                             text.substr(kLost.size()));
    if (std::none_of(std::begin(kHeld), std::end(kHeld),
                     [&text](const char* part) { return text.find(part) != std::string::npos; }))
      throw;
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "Otra persona u otro programa tiene ocupada la base de datos, y no se ha "
                       "cambiado nada. Espere un momento y repítalo; si sigue así, cierre las "
                       "copias de seguridad y los programas de consulta que la tengan abierta");
  }
}

}  // namespace quorvane
