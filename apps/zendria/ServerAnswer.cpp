#include "apps/zendria/ServerAnswer.h"

#include <QStringList>
#include <initializer_list>
#include <vector>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/DriverSettings.h"
#include "adapters/odbc/FailureWords.h"
#include "apps/zendria/HoldsAny.h"
#include "apps/zendria/SchoolError.h"
#include "apps/zendria/ServerChoice.h"

namespace quorvane::zendria {
namespace {

using About = ServerAnswer::About;

constexpr qsizetype kMissingTablesShown = 4;

struct Rule {
  std::vector<const char*> signs;  ///< any of them; what stands in brackets is a driver's number
  About about;
  const char* text;  ///< %1 server, %2 port, %3 database, %4 user
};

/// The first that fits counts. PostgreSQL's driver gives one number for all, so that only the words
/// tell, which are the user's language's or the server's.
const std::vector<Rule>& Rules() {
  static const std::vector<Rule> rules = {
      {{"translate host name", "traducir el nombre", "(20013)"},
       About::Server,
       "No se encuentra ningún servidor que se llame «%1». Compruebe cómo está escrito, y que este "
       "equipo está conectado a la red."},
      {{"FATAL:  database \"", "no existe la base de datos", "(4060)"},
       About::Database,
       "En el servidor «%1» no hay ninguna base de datos «%3» que pueda abrir. Compruebe cómo está "
       "escrita: las mayúsculas cuentan."},
      {odbc::LoginSigns(), About::Password,
       "El servidor no admite ese usuario («%4») con esa contraseña. Compruebe los dos: las "
       "mayúsculas cuentan."},
      {{"pg_hba.conf"},
       About::User,
       "El servidor no deja entrar desde este equipo al usuario «%4» en la base de datos «%3». "
       "Pida al técnico que lo permita en su fichero pg_hba.conf, o pruebe con el cifrado puesto."},
      {{"does not support SSL", "no soporta SSL"},
       About::Tls,
       "El servidor no cifra la conexión y se le ha pedido que la cifre. Avise al técnico, o elija "
       "otro cifrado."},
      {{"certificate", "certificado"},
       About::Tls,
       "No se puede comprobar que el servidor sea el que dice ser: falta en este equipo su "
       "certificado raíz, o el nombre «%1» no es el del certificado. Avise al técnico."},
      {{"too many clients", "too many connections", "demasiad"},
       About::Everything,
       "El servidor no admite más conexiones ahora mismo. Espere un momento y vuelva a intentarlo."},
      {{"Connection refused", "Conexión rehusada", "Conexión rechazada", "(20009)"},
       About::Port,
       "En «%1» no contesta ninguna base de datos por el puerto %2. Compruebe el puerto, y pregunte "
       "al técnico si el servidor está en marcha y admite conexiones de la red."},
      {{"timeout", "timed out", "tiempo de espera", "No route to host", "unreachable",
        "inalcanzable", "No existe ninguna ruta"},
       About::Server,
       "«%1» no contesta. Compruebe la red, y que ningún cortafuegos cierra el puerto %2."},
      {{"[42501]", "permission denied", "permiso denegado", "(229)"},
       About::User,
       "El usuario «%4» entra en la base de datos «%3», pero no puede leer sus tablas. Pida al "
       "técnico que le dé los permisos."},
  };
  return rules;
}

/// The driver's own words, without ours round them.
QString Bare(const QString& why) {
  const auto begin = why.indexOf(u'[');
  if (begin < 0) return why;
  const auto end = why.lastIndexOf(". Compruebe ");
  return why.mid(begin, end < begin ? -1 : end - begin).simplified();
}

/// Where the connection string leads: what it doesn't say itself its data source does, or is usual.
struct Place {
  explicit Place(const odbc::ConnectionString& given)
      : server(Value(given, {"Servername", "Server", "DSN"})),
        port(Value(given, {"Port"})),
        database(Value(given, {"Database", "DSN"})),
        user(Value(given, {"UID", "Username", "User"})) {
    const auto engine = odbc::NamedEngine(given.Text());
    if (port.isEmpty())
      port = ServerChoice::UsualPort(engine == sqltext::Engine::PostgreSql
                                         ? ServerChoice::Kind::PostgreSql
                                         : ServerChoice::Kind::SqlServer);
  }

  static QString Value(const odbc::ConnectionString& given,
                       std::initializer_list<const char*> keywords) {
    for (const auto* const keyword : keywords)
      if (const auto value = odbc::GivenSetting(given, keyword); !value.empty())
        return QString::fromStdString(value);
    return {};
  }

  QString server;
  QString port;
  QString database;
  QString user;
};

QString NoDriver(const odbc::ConnectionString& given) {
  const auto driver = QString::fromStdString(given.Value("Driver"));
  if (driver.isEmpty())
    return QStringLiteral(
               "En este equipo no hay ningún origen de datos «%1». Los que hay los dice «odbcinst "
               "-q -s».")
        .arg(QString::fromStdString(given.Value("DSN")));
  const auto names = [&driver](const char* part) {
    return driver.contains(part, Qt::CaseInsensitive);
  };
  if (names("PostgreSQL") || names("psqlodbc"))
    return "Falta en este equipo el controlador de PostgreSQL: instale el paquete odbc-postgresql.";
  if (names("FreeTDS") || names("SQL Server") || names("tdsodbc"))
    return "Falta en este equipo el controlador de SQL Server: instale el paquete tdsodbc.";
  return QStringLiteral(
             "En este equipo no hay ningún controlador «%1». Los que hay los dice «odbcinst -q "
             "-d».")
             .arg(driver) +
         (odbc::NamesOtherDriver(given.Text())
              ? QStringLiteral(" %1.").arg(QString::fromUtf8(odbc::kSupportedEngines))
              : QString());
}

QString NoSchool(const QStringList& missing, const QString& database) {
  if (missing.first().endsWith("no tiene ninguna de sus tablas"))
    return QStringLiteral(
               "La base de datos «%1» está, pero no tiene ninguna tabla de una escuela. Un técnico "
               "las hace con «quorvane-escuela crear», o trae a ella una escuela que ya existe con "
               "«quorvane-escuela copiar».")
        .arg(database);
  auto shown = missing.mid(0, kMissingTablesShown);
  if (missing.size() > shown.size())
    shown.append(QStringLiteral("… y %1 más").arg(missing.size() - shown.size()));
  return QStringLiteral("La base de datos «%1» no es una escuela que este programa pueda abrir.\n")
             .arg(database) +
         shown.join(u'\n');
}

}  // namespace

ServerAnswer AnswerTo(const SchoolError& error, const SchoolAddress& address) {
  const odbc::ConnectionString given(address.Text());
  const Place place(given);
  const auto why = error.Why();
  if (!error.Missing().isEmpty())
    return {About::Database, NoSchool(error.Missing(), place.database)};
  if (odbc::ConnectionString::IsAddress(address.Text())) return {About::Everything, why};
  const auto behind = QStringLiteral("\n\nEl controlador dice: ") + Bare(why);
  if (HoldsAny(why, {"Can't open lib", "[IM00"}))
    return {About::Everything, NoDriver(given) + behind};
  for (const auto& rule : Rules()) {
    if (!HoldsAny(why, rule.signs)) continue;
    // Not each text has a place for each value.
    auto text = QString::fromUtf8(rule.text);
    text.replace("%1", place.server).replace("%2", place.port);
    text.replace("%3", place.database).replace("%4", place.user);
    return {rule.about, text + behind};
  }
  return {About::Everything, "No se puede abrir la escuela en ese servidor." + behind};
}

}  // namespace quorvane::zendria
