#pragma once

#include <QObject>
#include <functional>

class QKeyEvent;
class QWidget;
class QWindow;

namespace quorvane::qt {

/// Sees to it that each key is taken once, by what has the keyboard when its turn comes. Windows
/// come and go faster than the window system moves the keyboard: a key may be sent to a list that
/// has dropped down and closed again, or to a form that has made way for the next.
///
/// Works from its making to its end, for all windows of the program.
class LateKeys : public QObject {
 public:
  /// `current` gives the window that the user acts on, or null.
  explicit LateKeys(std::function<QWidget*()> current);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool SendOn(const QWindow& window, const QKeyEvent& key);

  std::function<QWidget*()> current_;
};

}  // namespace quorvane::qt
