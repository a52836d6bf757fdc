#include "adapters/guion/host/Host.h"

#include <memory>
#include <utility>

#include "adapters/guion/host/ScriptedCentroApi.h"
#include "adapters/guion/host/ScriptedPersonSearch.h"
#include "adapters/guion/player/EventPrinter.h"
#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/SessionValues.h"

namespace quorvane::guion {

Host::Host(HostOptions options, HostConnections connections, ModuleEntry module,
           EventPrinter& events)
    : options_(std::move(options)),
      connections_(connections),
      module_(std::move(module)),
      events_(events) {
  Watch(connections_.centro);
  Watch(connections_.borrado);
  Watch(connections_.entrada);
  RegisterComponents();
}

Host::~Host() {
  Application::Instance().Objects().Reset();
  for (auto* connection : {&connections_.centro, &connections_.borrado, &connections_.entrada})
    connection->Observe(nullptr);
}

void Host::Watch(Connection& connection) {
  connection.Observe([this](const Connection& watched, const std::string& statement) {
    events_.Print("sql", watched.Name() + " " + statement);
    if (untilFailure_ > 0 && --untilFailure_ == 0)
      throw RuntimeError(ErrorNumber::StatementFailed, "fallo");
  });
}

void Host::RegisterComponents() {
  auto& objects = Application::Instance().Objects();
  objects.Register(CentroApi::kProgId,
                   [this] { return std::make_unique<ScriptedCentroApi>(*this, events_); });
  objects.Register(PersonSearch::kProgId,
                   [this] { return std::make_unique<ScriptedPersonSearch>(*this, events_); });
}

void Host::HandSessionIn() {
  const auto flag = [](bool value) { return Value(value ? -1 : 0); };
  auto session = std::make_shared<SessionValues>();
  session->Set("RutaAplicacion", Value("C:\\Zendria"));
  session->Set("RutaIcono", Value("C:\\Zendria\\iconos\\zendria.ico"));
  session->Set("RutaBD", Value(options_.rutaBD));
  session->Set("Activa", flag(options_.activa != 0));
  session->Set("Accion", Value(0));
  session->Set("lngRowData", Value(0));
  session->Set("conexionBORRADOlocalCENTRO", &connections_.borrado);
  session->Set("conexionlocalCENTRO", &connections_.centro);
  session->Set("conexionAppEntrada", &connections_.entrada);
  session->Set("IDUsuario", Value(options_.usuario));
  session->Set("IDPerfil", Value(options_.perfil));
  session->Set("IDCentro", Value(options_.centro));
  session->Set("IDCursoEscolar", Value(1));
  session->Set("NombreUsuario", Value("Usuario " + std::to_string(options_.usuario)));
  session->Set("NombreCentro", Value("Centro " + std::to_string(options_.centro)));
  session->Set("Pesetas", flag(false));
  session->Set("SQLServer", flag(options_.sqlServer));
  module_.ObtenerDatos(session);
}

void Host::Activate(std::int32_t nodo) {
  // One that was lost is made anew; one that is open tells whether its database is still there.
  for (auto* const connection : {&connections_.centro, &connections_.borrado}) connection->Open();
  module_.ActivarFormulario(ToByte(nodo));
}

}  // namespace quorvane::guion
