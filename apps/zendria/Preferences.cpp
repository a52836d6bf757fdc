#include "apps/zendria/Preferences.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QScreen>
#include <QStandardPaths>
#include <QWidget>

#include "apps/zendria/SchoolPlace.h"

namespace quorvane::zendria {
namespace {

constexpr auto kRecent = "escuelasRecientes";
constexpr qsizetype kMostRecent = 8;

constexpr auto kServer = "ultimoServidor";
constexpr auto kWindows = "ventanas";
constexpr auto kForms = "formularios";
constexpr int kGreatestForm = 200'000;  // twips, more than any screen has

QString GeometryKey(const QString& window) { return kWindows + ("/" + window); }

QString FormKey(const QString& form, const QScreen& screen) {
  const auto size = screen.size();
  return QStringLiteral("%1/%2x%3/%4").arg(kForms).arg(size.width()).arg(size.height()).arg(form);
}

QString SchoolKey(const char* kind, const QString& school) {
  // A path would be taken apart at its slashes.
  const auto name = QCryptographicHash::hash(school.toUtf8(), QCryptographicHash::Sha1).toHex();
  return kind + QString::fromLatin1(name);
}

constexpr auto kCentres = "centros/";
constexpr auto kUsers = "usuarios/";
constexpr auto kFailures = "fallosAlEntrar/";
constexpr auto kTimes = "fallosDesde/";

}  // namespace

Preferences::Preferences()
    : settings_("Zendria", "Zendria"),
      dataFolder_(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)) {
  KeepToOwner();
}

Preferences::Preferences(const QString& file)
    : settings_(file, QSettings::IniFormat), dataFolder_(QFileInfo(file).absolutePath()) {
  KeepToOwner();
}

Preferences::~Preferences() {
  settings_.sync();
  KeepToOwner();
}

// The toolkit gives a file that it writes anew the rights of the one before.
void Preferences::KeepToOwner() const {
  QFile::setPermissions(settings_.fileName(), QFile::ReadOwner | QFile::WriteOwner);
}

QStringList Preferences::RecentSchools() const {
  QStringList there;
  for (const auto& file : settings_.value(kRecent).toStringList())
    if (IsOdbcPlace(file) || QFileInfo::exists(file)) there.append(file);
  return there;
}

void Preferences::AddRecentSchool(const QString& place) {
  const auto whole = PlaceOf(AddressOf(place));
  auto files = settings_.value(kRecent).toStringList();
  files.removeAll(whole);
  files.prepend(whole);
  settings_.setValue(kRecent, QStringList(files.mid(0, kMostRecent)));
}

QString Preferences::LastServer() const { return settings_.value(kServer).toString(); }

void Preferences::KeepServer(const QString& connectionString) {
  const auto address = SchoolAddress::Odbc(connectionString.toStdString());
  settings_.setValue(kServer, QString::fromStdString(address.Shown()));
}

void Preferences::Remember(const QString& window, const QWidget& widget) {
  settings_.setValue(GeometryKey(window), widget.saveGeometry());
}

void Preferences::KeepFormSize(const QString& form, const QScreen& screen, QSize twips) {
  settings_.setValue(FormKey(form, screen), twips);
}

std::optional<QSize> Preferences::FormSize(const QString& form, const QScreen& screen) const {
  const auto size = settings_.value(FormKey(form, screen)).toSize();
  const auto most = QSize(kGreatestForm, kGreatestForm);
  if (size.isEmpty() || size != size.boundedTo(most)) return std::nullopt;
  return size;
}

void Preferences::ForgetSizes() {
  settings_.remove(kWindows);
  settings_.remove(kForms);
}

std::optional<std::int32_t> Preferences::Number(const QString& key) const {
  auto isNumber = false;
  const auto number = settings_.value(key).toInt(&isNumber);
  if (!isNumber) return std::nullopt;
  return number;
}

void Preferences::KeepCentre(const QString& school, std::int32_t centre) {
  settings_.setValue(SchoolKey(kCentres, school), centre);
}

std::optional<std::int32_t> Preferences::Centre(const QString& school) const {
  return Number(SchoolKey(kCentres, school));
}

void Preferences::KeepLastUser(const QString& school, std::int32_t user) {
  settings_.setValue(SchoolKey(kUsers, school), user);
}

std::optional<std::int32_t> Preferences::LastUser(const QString& school) const {
  return Number(SchoolKey(kUsers, school));
}

void Preferences::KeepFailedSignIns(const QString& school, const zendria::FailedSignIns& failures) {
  if (failures.count == 0) {
    settings_.remove(SchoolKey(kFailures, school));
    settings_.remove(SchoolKey(kTimes, school));
    return;
  }
  settings_.setValue(SchoolKey(kFailures, school), failures.count);
  settings_.setValue(SchoolKey(kTimes, school), failures.last.toString(Qt::ISODate));
  // Who ends the program at once finds it all the same.
  settings_.sync();
}

zendria::FailedSignIns Preferences::FailedSignIns(const QString& school) const {
  const auto last =
      QDateTime::fromString(settings_.value(SchoolKey(kTimes, school)).toString(), Qt::ISODate);
  const auto count = Number(SchoolKey(kFailures, school)).value_or(0);
  if (!last.isValid() || count < 0) return {};
  return {count, last};
}

bool Preferences::Restore(const QString& window, QWidget& widget) const {
  return widget.restoreGeometry(settings_.value(GeometryKey(window)).toByteArray());
}

}  // namespace quorvane::zendria
