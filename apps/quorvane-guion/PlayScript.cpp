#include "apps/quorvane-guion/PlayScript.h"

#include <utility>
#include <vector>

#include "adapters/guion/host/Host.h"
#include "adapters/guion/language/ScriptError.h"
#include "adapters/guion/language/ScriptParser.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/guion/player/Guion.h"
#include "apps/escuela/Told.h"
#include "apps/quorvane-guion/SchoolConnections.h"
#include "frame/cAsignarDatos.h"
#include "platform/RuntimeError.h"

namespace quorvane::guion {
namespace {

constexpr int kNotPlayed = 2;

ModuleEntry RealModule() {
  return {[](const auto& session) { cAsignarDatos().ObtenerDatos(session); },
          [](std::uint8_t nodo) { cAsignarDatos().ActivarFormulario(nodo); }};
}

}  // namespace

int PlayScript(const PlayOptions& options, std::istream& script, std::ostream& out,
               std::ostream& errors, bool written) {
  try {
    auto commands = written ? std::vector<Command>() : ParseScript(script);
    const SchoolConnections school(options);
    auto session = options.host;
    session.rutaBD = school.Place();
    session.sqlServer = session.sqlServer || school.SqlServer();
    if (session.hoy.empty()) session.hoyDelServidor = [&school] { return school.Today(); };
    EventPrinter events(out);
    Host host(session, school.Connections(), RealModule(), events);
    if (!written) return Guion(std::move(commands), host, events).Play();
    std::size_t line = 0;
    return Guion([&] { return ReadCommand(script, line); }, host, events).Play();
  } catch (const ScriptError& error) {
    errors << "línea " << error.Line() << ": " << Told(error.what()) << '\n';
  } catch (const RuntimeError& error) {
    errors << Told(error.Description()) << '\n';
  }
  return kNotPlayed;
}

}  // namespace quorvane::guion
