#include "adapters/guion/player/Guion.h"

#include <exception>
#include <iostream>
#include <sstream>

#include "adapters/guion/host/Host.h"
#include "adapters/guion/language/ScriptParser.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/odbc/OdbcConnection.h"
#include "frame/cAsignarDatos.h"
#include "platform/RuntimeError.h"

// A host that plays a script in its own process, on connections through ODBC. There is no such
// source of data, so the failure of opening it is what it sees.

namespace {

using namespace quorvane;

std::string OpenNowhere(odbc::OdbcConnection& connection) {
  try {
    connection.Open();
  } catch (const RuntimeError& error) {
    return std::to_string(error.Number()) + ' ' + error.Description();
  }
  return {};
}

std::string PlayOn(Connection& connection) {
  std::istringstream script("nodo 123\n");
  std::ostringstream out;
  guion::EventPrinter events(out);
  guion::Host host({}, {connection, connection, connection, connection},
                   {[](const auto& session) { cAsignarDatos().ObtenerDatos(session); },
                    [](std::uint8_t nodo) { cAsignarDatos().ActivarFormulario(nodo); }},
                   events);
  guion::Guion(guion::ParseScript(script), host, events).Play();
  return out.str();
}

}  // namespace

int main() {
  try {
    odbc::OdbcConnection nowhere("DSN=ninguno", "centro");
    const auto refusal = OpenNowhere(nowhere);
    const auto played = PlayOn(nowhere);
    std::cout << refusal << '\n' << played;
    // A screen that is opened connects again, and says the same.
    const auto failed = played.find("error " + refusal) != std::string::npos;
    return refusal.starts_with("-2147467259 ") && failed ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
