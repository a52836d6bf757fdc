#include "apps/zendria/School.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <chrono>
#include <map>
#include <utility>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/PasswordHash.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/zendria/SchoolError.h"
#include "apps/zendria/TextFolding.h"
#include "platform/RuntimeError.h"
#include "platform/text/SpanishOrder.h"

namespace quorvane::zendria {
namespace {

constexpr std::chrono::seconds kMoment(2);

/// The file is never read here beside the engine: closing it would drop the locks that this process
/// has on it, and other programs would take away the log of a school that is open.
bool IsNoDatabase(const QString& failure) { return failure.endsWith("file is not a database"); }

/// Closed, of a file: `Reopen` tells what is wrong with that.
std::unique_ptr<Connection> Aside(const SchoolAddress& address, const std::string& name) {
  return address.IsOdbc() ? address.StandBy(name) : address.Connect(name);
}

/// What was given where a file's name belongs may hold a password: it isn't even looked for.
SchoolAddress InPlace(SchoolAddress address) {
  if (address.IsMisplaced()) throw SchoolError(SchoolAddress::kMisplaced);
  return address;
}

}  // namespace

School::School(SchoolAddress address)
    : address_(InPlace(std::move(address))),
      centro_(address_.Connect("centro")),
      borrado_(Aside(address_, "borrado")),
      entrada_(address_.Connect("entrada")),
      own_(Aside(address_, "")) {
  try {
    Reopen();
    CheckTables();
    ReadUsers();
    ReadLogin();
    centres_ = ReadCentres(*own_);
    Rest();
  } catch (const RuntimeError& error) {
    const auto text = QString::fromStdString(error.Description());
    if (!address_.IsOdbc() && IsNoDatabase(text))
      throw SchoolError(QStringLiteral("«%1» no es una base de datos SQLite.").arg(File()));
    throw SchoolError(text);
  }
}

std::optional<User> School::FindUser(std::int32_t id) const {
  const auto found =
      std::find_if(users_.begin(), users_.end(), [id](const User& user) { return user.id == id; });
  if (found == users_.end()) return std::nullopt;
  return *found;
}

std::unique_ptr<Connection> School::OpenAnew() const {
  // Beside a file that has taken the place of this one lies this one's log, and whoever opens that
  // file, even to read, has the engine write the log into it.
  if (!IsOnServer()) centro_->Open();
  auto connection = address_.Connect("", SchoolAddress::Access::ReadOnly);
  if (auto* const file = dynamic_cast<sqlite::SqliteConnection*>(connection.get()))
    file->BusyWait(kMoment);
  connection->Open();
  return connection;
}

PublicationNotes School::Notes(const QString& dataFolder) const {
  if (!IsOnServer()) return PublicationNotes::Beside(address_.Text());
  const auto folder = dataFolder + "/abiertas";
  QDir().mkpath(folder);
  const auto place = QCryptographicHash::hash(Place().toUtf8(), QCryptographicHash::Sha1).toHex();
  return PublicationNotes((folder + u'/' + QString::fromLatin1(place) + u'-').toStdString());
}

QString School::LogOfAnother() const {
  if (IsOnServer()) return {};
  try {
    centro_->Open();
    return {};
  } catch (const RuntimeError&) {
    const QFileInfo log(File() + "-wal");
    return QFileInfo::exists(File()) && log.size() > 0 ? log.filePath() : QString();
  }
}

void School::Reopen() {
  for (auto* const connection : {centro_.get(), borrado_.get(), own_.get()}) connection->Open();
}

void School::Rest() {
  if (IsOnServer()) own_->Close();
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

void School::ReadLogin() {
  switch (EngineReached(*own_)) {
    case sqltext::Engine::PostgreSql:
      login_ = QString::fromStdString(
          own_->Execute("SELECT CAST(session_user AS text)").Fields(0).Text());
      break;
    case sqltext::Engine::SqlServer:
      login_ = QString::fromStdString(own_->Execute("SELECT ORIGINAL_LOGIN()").Fields(0).Text());
      break;
    default:
      openToAll_ = !HasPasswords();
  }
}

bool School::IsOpenToAll() {
  if (IsOnServer()) return openToAll_;
  try {
    openToAll_ = !HasPasswords();
  } catch (const RuntimeError&) {
    // A school that can't be read for the moment is no reason to show no session.
  }
  return openToAll_;
}

std::optional<User> School::SignIn(const QString& name, const QString& password) {
  std::map<QString, std::vector<std::int32_t>> called;
  // A name that several share takes no longer than one that nobody has.
  std::size_t most = 1;
  for (const auto& user : users_) {
    auto& ids = called[Folded(user.name.trimmed())];
    ids.push_back(user.id);
    most = std::max(most, ids.size());
  }
  auto secret = password.toStdString();
  const auto owner = UserPasswords(*own_).Owner(called[Folded(name.trimmed())], most, secret);
  Wipe(secret);
  return owner ? FindUser(*owner) : std::nullopt;
}

}  // namespace quorvane::zendria
