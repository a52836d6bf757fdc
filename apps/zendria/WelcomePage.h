#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <QWidget>
#include <functional>

namespace quorvane::zendria {

/// What the main window shows while no school is open: buttons to open one, and those opened
/// last.
class WelcomePage : public QWidget {
 public:
  explicit WelcomePage(QWidget* parent = nullptr);

  /// As `Preferences` keeps them.
  void ShowRecent(const QStringList& files);

  std::function<void()> Open;
  std::function<void()> Connect;
  std::function<void(const QString& place)> OpenRecent;

 private:
  QPushButton open_;
  QPushButton connect_;
  QLabel heading_;
  QListWidget recent_;
};

}  // namespace quorvane::zendria
