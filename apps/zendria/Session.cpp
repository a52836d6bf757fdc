#include "apps/zendria/Session.h"

#include "apps/zendria/School.h"
#include "apps/zendria/User.h"
#include "platform/host/SessionValues.h"

namespace quorvane::zendria {
namespace {

// The module parts these at their last backslash; the screen finds its own drawings by the file's
// name alone.
constexpr auto kApplicationFolder = "C:\\Zendria";
constexpr auto kIconFile = "C:\\Zendria\\iconos\\zendria.ico";

/// A school of one centre is that centre; more than one are told apart by their numbers, since the
/// database has no names for them.
std::string CentreName(const School& school, const std::optional<Centre>& centre) {
  auto name = school.Name();
  if (centre && school.Centres().size() > 1) name += QStringLiteral(" (centro %1)").arg(centre->id);
  return name.toStdString();
}

}  // namespace

std::shared_ptr<const SessionObject> MakeSession(School& school, const User& user,
                                                 const std::optional<Centre>& centre, bool active) {
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
  session->Set("IDCentro", Value(centre ? centre->id : 0));
  session->Set("IDCursoEscolar", Value(1));
  session->Set("NombreUsuario", Value(user.name.toStdString()));
  session->Set("NombreCentro", Value(CentreName(school, centre)));
  session->Set("Pesetas", Value(0));
  session->Set("RutaIcono", Value(kIconFile));
  session->Set("IDPerfil", Value(user.profile));
  session->Set("SQLServer", Value(school.SqlServer() ? -1 : 0));
  return session;
}

}  // namespace quorvane::zendria
