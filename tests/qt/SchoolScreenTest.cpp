#include "tests/qt/SchoolScreenTest.h"

#include <cstdint>
#include <memory>

#include "apps/escuela/DemoSchool.h"
#include "frame/cAsignarDatos.h"
#include "frame/modGeneral.h"
#include "platform/host/Application.h"
#include "platform/host/PersonSearch.h"
#include "platform/host/SessionValues.h"
#include "tests/support/Opened.h"

namespace quorvane::test {
namespace {

class Finder : public PersonSearch {
 public:
  explicit Finder(const std::int32_t& found) : found_(found) {}
  std::int32_t Buscar(const std::string& /*clase*/) override { return found_; }

 private:
  const std::int32_t& found_;
};

}  // namespace

SchoolScreenTest::SchoolScreenTest()
    : centro_(school.Path(), "centro"),
      borrado_(school.Path(), "borrado"),
      entrada_(school.Path(), "entrada") {
  gblnMostrarAnchoNotas = false;
  for (auto* connection : {&centro_, &borrado_, &entrada_}) {
    connection->Open();
    connection->ExecuteScript("PRAGMA synchronous=OFF");
  }
  Opened<sqlite::SqliteConnection> builder(school.Path(), "");
  builder.ExecuteScript("PRAGMA synchronous=OFF");
  DemoSchool(builder).Build();
  centro_.Observe([this](const Connection&, const std::string& statement) {
    screen.Pulse();
    if (saving_ && statement.starts_with("UPDATE EvaluacionPte")) saving_();
  });
  Application::Instance().Objects().Register(PersonSearch::kProgId,
                                             [this] { return std::make_unique<Finder>(teacher); });
}

SchoolScreenTest::~SchoolScreenTest() { Application::Instance().Objects().Reset(); }

void SchoolScreenTest::OpenNode(int node) {
  auto session = std::make_shared<SessionValues>();
  for (const auto* member : {"Accion", "lngRowData", "Pesetas", "SQLServer", "IDPerfil"})
    session->Set(member, Value(0));
  for (const auto* member : {"IDUsuario", "IDCentro", "IDCursoEscolar"})
    session->Set(member, Value(1));
  session->Set("Activa", Value(-1));
  session->Set("RutaAplicacion", Value("C:\\Zendria"));
  session->Set("RutaIcono", Value("C:\\Zendria\\iconos\\zendria.ico"));
  for (const auto* member : {"RutaBD", "NombreUsuario", "NombreCentro"})
    session->Set(member, Value(""));
  session->Set("conexionlocalCENTRO", &centro_);
  session->Set("conexionBORRADOlocalCENTRO", &borrado_);
  session->Set("conexionAppEntrada", &entrada_);
  cAsignarDatos module;
  module.ObtenerDatos(session);
  module.ActivarFormulario(static_cast<std::uint8_t>(node));
  ExpectDone();
}

}  // namespace quorvane::test
