#pragma once

#include <QObject>
#include <optional>

#include "apps/zendria/SignalWatch.h"

namespace quorvane::qt {
class QtFrontEnd;
}

namespace quorvane::zendria {

/// The program's end when it isn't the user who closes one window after the other: the desktop logs
/// out, the task bar closes the main window, or a signal comes. The dialogs that stand open are
/// closed as by their cancelling, the forms are unloaded so that they give back what they hold, and
/// the event loop ends. What wasn't saved is dropped; nobody is asked.
///
/// Made after the `QApplication`, before its loop runs.
class Departure : public QObject {
 public:
  /// `screen` outlives it.
  explicit Departure(qt::QtFrontEnd& screen);

  /// Returns at once; the event loop ends when the handlers that run have returned.
  void Leave();
  /// The signal that the program leaves for; none for another reason.
  [[nodiscard]] std::optional<int> Signal() const noexcept { return signal_; }

  /// The desktop tells that the session ends, and Qt that the last window is closed, by an event.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Arrived(int signal);

  qt::QtFrontEnd& screen_;
  std::optional<int> signal_;
  SignalWatch signals_;
};

}  // namespace quorvane::zendria
