#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <QWidget>
#include <functional>

namespace quorvane::zendria {

/// What the main window shows while no school is open: a button to open one, and those opened
/// last.
class WelcomePage : public QWidget {
 public:
  explicit WelcomePage(QWidget* parent = nullptr);

  void ShowRecent(const QStringList& files);

  std::function<void()> Open;
  std::function<void(const QString& file)> OpenRecent;

 private:
  QPushButton open_;
  QLabel heading_;
  QListWidget recent_;
};

}  // namespace quorvane::zendria
