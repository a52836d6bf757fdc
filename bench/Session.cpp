#include "bench/Session.h"

#include <memory>

#include "frame/cAsignarDatos.h"
#include "platform/controls/FormInstances.h"
#include "platform/host/Application.h"
#include "platform/host/SessionValues.h"

namespace quorvane::bench {

Session::Session(const std::string& school)
    : centro_(school, "centro"), borrado_(school, "borrado"), entrada_(school, "entrada") {
  centro_.Open();
  borrado_.Open();
  Application::Instance().UseScreen(&screen_);
  auto values = std::make_shared<SessionValues>();
  for (const auto* const text : {"RutaAplicacion", "RutaBD", "RutaIcono"})
    values->Set(text, Value("\\x"));
  for (const auto* const text : {"NombreUsuario", "NombreCentro"}) values->Set(text, Value(""));
  for (const auto* const zero :
       {"Accion", "lngRowData", "IDCursoEscolar", "Pesetas", "IDPerfil", "SQLServer"})
    values->Set(zero, Value(0));
  for (const auto* const one : {"Activa", "IDUsuario", "IDCentro"}) values->Set(one, Value(1));
  values->Set("conexionlocalCENTRO", &centro_);
  values->Set("conexionBORRADOlocalCENTRO", &borrado_);
  values->Set("conexionAppEntrada", &entrada_);
  cAsignarDatos().ObtenerDatos(values);
}

Session::~Session() {
  FormInstances::DropAll();
  Application::Instance().UseScreen(nullptr);
}

void Session::Open(std::uint8_t node) { cAsignarDatos().ActivarFormulario(node); }

}  // namespace quorvane::bench
