#pragma once

#include <QDateTime>
#include <QSettings>
#include <QSize>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

class QScreen;
class QWidget;

namespace quorvane::zendria {

/// Tries to sign in that have failed one after the other.
struct FailedSignIns {
  int count = 0;
  QDateTime last;  ///< of the last of them; invalid for none
};

/// What the host keeps from one run to the next: the schools opened last, the centre chosen in
/// each, and the measures of windows. What can't be made sense of counts as not kept.
class Preferences {
 public:
  /// In the user's own settings.
  Preferences();
  /// In that file, and in its folder.
  explicit Preferences(const QString& file);
  ~Preferences();
  Preferences(const Preferences&) = delete;
  Preferences& operator=(const Preferences&) = delete;
  Preferences(Preferences&&) = delete;
  Preferences& operator=(Preferences&&) = delete;

  /// Where else the host keeps what is this user's: a folder that may not be there yet.
  [[nodiscard]] QString DataFolder() const { return dataFolder_; }

  /// Their places, see `PlaceOf`: the newest first, at most eight; files that are gone are left
  /// out.
  [[nodiscard]] QStringList RecentSchools() const;
  void AddRecentSchool(const QString& place);

  /// The connection string without any password, of the server connected with last; empty when
  /// there was none.
  [[nodiscard]] QString LastServer() const;
  void KeepServer(const QString& connectionString);

  void Remember(const QString& window, const QWidget& widget);
  /// False when nothing was remembered.
  bool Restore(const QString& window, QWidget& widget) const;

  /// The measures of a form of the module, in twips, on a screen of that size.
  void KeepFormSize(const QString& form, const QScreen& screen, QSize twips);
  [[nodiscard]] std::optional<QSize> FormSize(const QString& form, const QScreen& screen) const;
  /// Every window and form has the size of its first day again, from its next opening on.
  void ForgetSizes();

  /// The centre chosen last in that school.
  void KeepCentre(const QString& school, std::int32_t centre);
  [[nodiscard]] std::optional<std::int32_t> Centre(const QString& school) const;

  /// Who signed in last to that school.
  void KeepLastUser(const QString& school, std::int32_t user);
  [[nodiscard]] std::optional<std::int32_t> LastUser(const QString& school) const;

  void KeepFailedSignIns(const QString& school, const zendria::FailedSignIns& failures);
  [[nodiscard]] zendria::FailedSignIns FailedSignIns(const QString& school) const;

 private:
  [[nodiscard]] std::optional<std::int32_t> Number(const QString& key) const;
  void KeepToOwner() const;

  QSettings settings_;
  QString dataFolder_;
};

}  // namespace quorvane::zendria
