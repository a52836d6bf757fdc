#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <functional>

class QWidget;

namespace quorvane::test {

/// Waits for what the window system sends: until it has brought so many gestures and then rests,
/// that is, until nothing moves any more on an answer that the server gave behind all of it. It
/// goes by no clock, but that a gesture which got lost isn't waited for longer than a user would.
class Rest : public QObject {
 public:
  using Next = std::function<void()>;

  /// Calls `next` once at rest, and goes; `gestures` are keys and buttons that are let go.
  static void After(int gestures, const Next& next);
  /// The same, once the window is shown, is the active one and has the keyboard.
  static void In(const QWidget& window, const Next& next);

  /// From its making on gestures are counted, for who makes them is another program.
  explicit Rest(int gestures);
  /// They have all been made: `next` is called at rest.
  void Then(const Next& next);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Look();
  [[nodiscard]] bool Waits() const;

  int awaited_;
  int quiet_ = 0;  ///< looks without anything that moved
  bool moved_ = true;
  QElapsedTimer since_;
  QTimer looks_;
  Next next_;
};

}  // namespace quorvane::test
