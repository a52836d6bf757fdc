#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QStringList>
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

  /// Calls `next` once the window is shown, is the active one, has the keyboard, and is at rest.
  static void In(const QWidget& window, const Next& next);

  /// From its making on gestures are counted, for who makes them is another program: keys and
  /// buttons that are let go.
  explicit Rest(int gestures);
  /// They have all been made: `next` is called at rest, and this goes.
  void Then(const Next& next);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Look();

  int awaited_;
  int quiet_ = 0;  ///< looks without anything that moved
  bool moved_ = true;
  QElapsedTimer since_;
  QTimer looks_;
  Next next_;
};

/// A hasty user whose keys and clicks come from another program, through the window system, while
/// this one goes on: what is done next is done once they have all arrived and nothing moves
/// (`Rest`).
class Hasty {
 public:
  using Next = Rest::Next;

  /// Presses keys by their X names, so many milliseconds apart; then `next`.
  static void Type(const QStringList& keys, int apart, const Next& next);
  /// Presses each key once all has come to rest behind the one before.
  static void TypeWithCare(const QStringList& keys, const Next& next);
  /// Presses keys by their X names, and right behind the last key a click there, in that widget.
  static void TypeAndClick(const QStringList& keys, int apart, const QWidget& widget, QPoint at,
                           const Next& next);
};

}  // namespace quorvane::test
