#pragma once

#include <QDir>
#include <QString>
#include <set>
#include <utility>

class QWidget;

namespace quorvane::screenshots {

/// Takes pictures of windows into a folder.
class Camera {
 public:
  /// Labels and lists show `shown` in the place of `hidden`, a folder that is none of the reader's
  /// business.
  Camera(const QString& folder, QString hidden, QString shown)
      : folder_(folder), hidden_(std::move(hidden)), shown_(std::move(shown)) {}

  /// The window with a title bar like those of a desktop, and what `over` shows above it, as an
  /// open list. A picture of that name is taken once: what comes later is passed over.
  void Take(const QString& name, QWidget& window, QWidget* over = nullptr);

  [[nodiscard]] bool Has(const QString& name) const { return taken_.count(name) != 0; }
  [[nodiscard]] std::size_t Count() const { return taken_.size(); }

 private:
  void Retouch(const QWidget& window) const;

  QDir folder_;
  QString hidden_;
  QString shown_;
  std::set<QString> taken_;
};

}  // namespace quorvane::screenshots
