#include "apps/zendria/Session.h"

#include "apps/zendria/School.h"
#include "apps/zendria/User.h"
#include "platform/SessionValues.h"

namespace quorvane::zendria {
namespace {

// The module parts these at their last backslash; the screen finds its own drawings by the file's
// name alone.
constexpr auto kApplicationFolder = "C:\\Zendria";
constexpr auto kIconFile = "C:\\Zendria\\iconos\\zendria.ico";

}  // namespace

std::shared_ptr<const SessionObject> MakeSession(School& school, const User& user, bool active) {
  auto session = std::make_shared<SessionValues>();
  session->Set("RutaAplicacion", Value(kApplicationFolder));
  session->Set("RutaBD", Value(school.File().toStdString()));
  session->Set("Activa", Value(active ? -1 : 0));
  session->Set("Accion", Value(0));
  session->Set("lngRowData", Value(0));
  session->Set("conexionBORRADOlocalCENTRO", &school.Borrado());
  session->Set("conexionlocalCENTRO", &school.Centro());
  session->Set("conexionAppEntrada", &school.Entrada());
  session->Set("IDUsuario", Value(user.id));
  session->Set("IDCentro", Value(school.Centre()));
  session->Set("IDCursoEscolar", Value(1));
  session->Set("NombreUsuario", Value(user.name.toStdString()));
  session->Set("NombreCentro", Value(school.Name().toStdString()));
  session->Set("Pesetas", Value(0));
  session->Set("RutaIcono", Value(kIconFile));
  session->Set("IDPerfil", Value(user.profile));
  session->Set("SQLServer", Value(0));
  return session;
}

}  // namespace quorvane::zendria
