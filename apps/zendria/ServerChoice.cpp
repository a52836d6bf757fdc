#include "apps/zendria/ServerChoice.h"

#include <algorithm>
#include <utility>

#include "adapters/odbc/ConnectionString.h"

namespace quorvane::zendria {
namespace {

constexpr auto kPostgreSql = "Driver={PostgreSQL Unicode}";
constexpr auto kSqlServer = "Driver=FreeTDS";

QString Entry(const char* keyword, const QString& value) {
  return value.isEmpty() ? QString() : QStringLiteral(";%1=").arg(keyword) + value;
}

QString InBraces(const char* keyword, const QString& value) {
  odbc::ConnectionString entry("");
  entry.Set(keyword, value.toStdString());
  return value.isEmpty() ? QString() : ";" + QString::fromStdString(entry.Text());
}

}  // namespace

const std::vector<ServerChoice::SslMode>& ServerChoice::SslModes() {
  static const std::vector<SslMode> modes = {
      {"disable", "Nunca"},
      {"prefer", "Si el servidor puede"},
      {"require", "Siempre"},
      {"verify-ca", "Siempre, y con un certificado comprobado"},
      {"verify-full", "Siempre, y con un servidor comprobado (recomendado)"}};
  return modes;
}

QString ServerChoice::UsualPort(Kind kind) { return kind == Kind::PostgreSql ? "5432" : "1433"; }

QString ServerChoice::Text() const {
  const auto postgreSql = kind == Kind::PostgreSql;
  // PostgreSQL's driver takes the braces of a password alone for what they are; of any other value
  // it takes them for a part of it.
  const auto entry = postgreSql ? Entry : InBraces;
  return (postgreSql ? kPostgreSql : kSqlServer) + entry("Server", server.trimmed()) +
         entry("Port", port.isEmpty() ? UsualPort(kind) : port) +
         entry("Database", database.trimmed()) + entry("UID", user.trimmed()) +
         (postgreSql ? entry("sslmode", sslmode) : entry("TDS_Version", "7.4"));
}

std::optional<ServerAnswer> ServerChoice::Mistake() const {
  using About = ServerAnswer::About;
  if (kind != Kind::PostgreSql) return std::nullopt;
  const std::pair<About, QString> fields[] = {
      {About::Server, server}, {About::Database, database}, {About::User, user}};
  for (const auto& [about, value] : fields)
    if (value.contains(u';') || value.trimmed().startsWith(u'{'))
      return ServerAnswer{
          about, QStringLiteral(
                     "«%1» no se puede escribir en una conexión con PostgreSQL: su controlador no "
                     "admite nombres con «;» ni que empiecen por «{».")
                     .arg(value)};
  return std::nullopt;
}

std::optional<ServerChoice> ServerChoice::Of(const QString& text) {
  const odbc::ConnectionString given(text.toStdString());
  const auto value = [&given](const char* keyword) {
    return QString::fromStdString(given.Value(keyword));
  };
  ServerChoice choice;
  if (value("Driver") == "FreeTDS") choice.kind = Kind::SqlServer;
  choice.server = value("Server");
  choice.port = value("Port");
  choice.database = value("Database");
  choice.user = value("UID");
  if (choice.kind == Kind::PostgreSql) choice.sslmode = value("sslmode");
  if (choice.Text() != text) return std::nullopt;
  // Another one would be lost in a list that doesn't offer it.
  const auto& modes = SslModes();
  const auto offered = std::any_of(modes.begin(), modes.end(), [&choice](const SslMode& mode) {
    return mode.name == choice.sslmode;
  });
  return offered ? std::optional(choice) : std::nullopt;
}

}  // namespace quorvane::zendria
