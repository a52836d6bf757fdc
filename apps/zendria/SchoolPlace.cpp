#include "apps/zendria/SchoolPlace.h"

#include <QFileInfo>

#include "adapters/odbc/ConnectionString.h"

namespace quorvane::zendria {
namespace {

constexpr auto kOdbc = "odbc:";

}  // namespace

QString OdbcPlace(const QString& connectionString) { return kOdbc + connectionString; }

bool IsOdbcPlace(const QString& place) { return place.startsWith(kOdbc); }

SchoolAddress AddressOf(const QString& place) {
  if (IsOdbcPlace(place))
    return SchoolAddress::Odbc(place.mid(QString(kOdbc).size()).toStdString());
  return SchoolAddress::File(QFileInfo(place).absoluteFilePath().toStdString());
}

QString PlaceOf(const SchoolAddress& address) {
  const auto shown = QString::fromStdString(address.Shown());
  return address.IsOdbc() ? OdbcPlace(shown) : shown;
}

QString IdentityOf(const SchoolAddress& address) {
  auto place = PlaceOf(address);
  if (address.IsOdbc()) return place;
  const auto file = QFileInfo(place).canonicalFilePath();
  return file.isEmpty() ? place : file;
}

QString PlaceTitle(const QString& place) {
  const auto address = AddressOf(place);
  const auto where =
      address.IsOdbc() ? QString::fromStdString(address.Shown()) : QFileInfo(place).path();
  const auto name = address.IsOdbc() ? SchoolName(address) : QFileInfo(place).fileName();
  return name + QStringLiteral("  ·  ") + where;
}

QString SchoolName(const SchoolAddress& address) {
  if (!address.IsOdbc())
    return QFileInfo(QString::fromStdString(address.Text())).completeBaseName();
  const odbc::ConnectionString given(address.Text());
  for (const auto* const keyword : {"Database", "DSN", "Server", "Servername"}) {
    const auto name = QString::fromStdString(given.Value(keyword));
    if (!name.isEmpty()) return QFileInfo(name).completeBaseName();
  }
  return "Escuela";
}

bool NeedsPassword(const SchoolAddress& address) {
  const odbc::ConnectionString given(address.Text());
  return address.IsOdbc() && (given.Has("UID") || given.Has("User")) && !given.Has("PWD") &&
         !given.Has("Password");
}

}  // namespace quorvane::zendria
