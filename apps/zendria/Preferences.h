#pragma once

#include <QSettings>
#include <QString>
#include <QStringList>

class QWidget;

namespace quorvane::zendria {

/// What the host keeps from one run to the next: the schools opened last and the windows'
/// measures.
class Preferences {
 public:
  /// In the user's own settings.
  Preferences();
  /// In that file.
  explicit Preferences(const QString& file);

  /// The newest first, at most eight; files that are gone are left out.
  [[nodiscard]] QStringList RecentSchools() const;
  void AddRecentSchool(const QString& file);

  void Remember(const QString& window, const QWidget& widget);
  /// False when nothing was remembered.
  bool Restore(const QString& window, QWidget& widget) const;

 private:
  QSettings settings_;
};

}  // namespace quorvane::zendria
