#include "apps/zendria/Preferences.h"

#include <QFileInfo>
#include <QWidget>

namespace quorvane::zendria {
namespace {

constexpr auto kRecent = "escuelasRecientes";
constexpr qsizetype kMostRecent = 8;

QString GeometryKey(const QString& window) { return "ventanas/" + window; }

}  // namespace

Preferences::Preferences() : settings_("Zendria", "Zendria") {}

Preferences::Preferences(const QString& file) : settings_(file, QSettings::IniFormat) {}

QStringList Preferences::RecentSchools() const {
  QStringList there;
  for (const auto& file : settings_.value(kRecent).toStringList())
    if (QFileInfo::exists(file)) there.append(file);
  return there;
}

void Preferences::AddRecentSchool(const QString& file) {
  const auto whole = QFileInfo(file).absoluteFilePath();
  auto files = settings_.value(kRecent).toStringList();
  files.removeAll(whole);
  files.prepend(whole);
  settings_.setValue(kRecent, QStringList(files.mid(0, kMostRecent)));
}

void Preferences::Remember(const QString& window, const QWidget& widget) {
  settings_.setValue(GeometryKey(window), widget.saveGeometry());
}

bool Preferences::Restore(const QString& window, QWidget& widget) const {
  return widget.restoreGeometry(settings_.value(GeometryKey(window)).toByteArray());
}

}  // namespace quorvane::zendria
