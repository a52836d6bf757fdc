#include "bench/Session.h"

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "bench/RecordingConnection.h"
#include "frame/cAsignarDatos.h"
#include "platform/controls/FormInstances.h"
#include "platform/host/Application.h"
#include "platform/host/SessionValues.h"

namespace quorvane::bench {
namespace {

template <class Adapter>
std::unique_ptr<Connection> Opened(Recorder& recorder, const SchoolAddress& school,
                                   const std::string& name) {
  auto connection = std::make_unique<RecordingConnection<Adapter>>(recorder, school.Text(), name);
  connection->Open();
  return connection;
}

std::unique_ptr<Connection> Open(Recorder& recorder, const SchoolAddress& school,
                                 const std::string& name) {
  return school.IsOdbc() ? Opened<odbc::OdbcConnection>(recorder, school, name)
                         : Opened<sqlite::SqliteConnection>(recorder, school, name);
}

}  // namespace

Session::Session(const SchoolAddress& school)
    : centro_(bench::Open(recorder_, school, "centro")),
      borrado_(school.StandBy("borrado")),
      entrada_(bench::Open(recorder_, school, "entrada")) {
  Application::Instance().UseScreen(&screen_);
  auto values = std::make_shared<SessionValues>();
  for (const auto* const text : {"RutaAplicacion", "RutaBD", "RutaIcono"})
    values->Set(text, Value("\\x"));
  for (const auto* const text : {"NombreUsuario", "NombreCentro"}) values->Set(text, Value(""));
  for (const auto* const zero :
       {"Accion", "lngRowData", "IDCursoEscolar", "Pesetas", "IDPerfil", "SQLServer"})
    values->Set(zero, Value(0));
  for (const auto* const one : {"Activa", "IDUsuario", "IDCentro"}) values->Set(one, Value(1));
  values->Set("conexionlocalCENTRO", centro_.get());
  values->Set("conexionBORRADOlocalCENTRO", borrado_.get());
  values->Set("conexionAppEntrada", entrada_.get());
  cAsignarDatos().ObtenerDatos(values);
}

Session::~Session() {
  FormInstances::DropAll();
  Application::Instance().UseScreen(nullptr);
}

void Session::Open(std::uint8_t node) { cAsignarDatos().ActivarFormulario(node); }

}  // namespace quorvane::bench
