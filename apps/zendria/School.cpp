#include "apps/zendria/School.h"

#include <QFile>
#include <algorithm>
#include <chrono>
#include <utility>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/zendria/SchoolError.h"
#include "platform/RuntimeError.h"
#include "platform/SpanishOrder.h"

namespace quorvane::zendria {
namespace {

constexpr std::chrono::seconds kMoment(2);

/// Whether the file begins as every SQLite database does. True for one that can't be read: what is
/// wrong with that one shows when it is opened.
bool LooksLikeDatabase(const QString& file) {
  static const QByteArray beginning("SQLite format 3\0", 16);
  QFile content(file);
  if (!content.open(QIODevice::ReadOnly) || content.size() == 0) return true;
  return content.read(beginning.size()) == beginning;
}

}  // namespace

School::School(SchoolAddress address)
    : address_(std::move(address)),
      centro_(address_.Connect("centro")),
      borrado_(address_.Connect("borrado")),
      entrada_(address_.Connect("entrada")),
      own_(address_.Connect("")) {
  if (!address_.IsOdbc() && !LooksLikeDatabase(File()))
    throw SchoolError(QStringLiteral("«%1» no es una base de datos SQLite.").arg(File()));
  try {
    Reopen();
    CheckTables();
    ReadUsers();
    centres_ = ReadCentres(*own_);
  } catch (const RuntimeError& error) {
    throw SchoolError(QString::fromStdString(error.Description()));
  }
}

std::optional<User> School::FindUser(std::int32_t id) const {
  const auto found =
      std::find_if(users_.begin(), users_.end(), [id](const User& user) { return user.id == id; });
  if (found == users_.end()) return std::nullopt;
  return *found;
}

std::unique_ptr<Connection> School::OpenAnew() const {
  auto connection = address_.Connect("", SchoolAddress::Access::ReadOnly);
  if (auto* const file = dynamic_cast<sqlite::SqliteConnection*>(connection.get()))
    file->BusyWait(kMoment);
  connection->Open();
  return connection;
}

void School::Reopen() {
  for (auto* const connection : {centro_.get(), borrado_.get(), own_.get()}) connection->Open();
}

void School::Observe(const Connection::Observer& observer) {
  for (auto* const connection : {centro_.get(), borrado_.get(), entrada_.get()})
    connection->Observe(observer);
}

void School::CheckTables() {
  QStringList missing;
  for (const auto& finding : SchoolCheck(*own_).Structure(SchoolCheck::For::Host))
    missing.append(QString::fromStdString(finding));
  if (!missing.isEmpty())
    throw SchoolError(
        QStringLiteral("«%1» no es una escuela que este programa pueda abrir.").arg(File()),
        missing);
}

void School::ReadUsers() {
  auto rows = own_->Execute("SELECT IDUsuario, Nombre, CodPerfil, AdminSistema FROM Usuario");
  for (; !rows.Eof(); rows.MoveNext()) {
    // Profile 0 may do everything: one that isn't known must not be taken for it.
    if (rows.Fields("CodPerfil").IsNull()) continue;
    users_.push_back({rows.Fields("IDUsuario").Long(),
                      QString::fromStdString(rows.Fields("Nombre").Text()),
                      rows.Fields("CodPerfil").Long(), rows.Fields("AdminSistema").Flag()});
  }
  std::stable_sort(users_.begin(), users_.end(), [](const User& one, const User& other) {
    return SpanishLess(one.name.toStdString(), other.name.toStdString());
  });
}

}  // namespace quorvane::zendria
