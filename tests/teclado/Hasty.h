#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

class QWidget;

namespace quorvane::test {

/// A hasty user whose keys and clicks come from another program, through the window system, while
/// this one goes on: what is done next is done once they have all arrived and nothing moves
/// (`Rest`).
class Hasty {
 public:
  using Next = std::function<void()>;

  /// Presses keys by their X names, so many milliseconds apart; then `next`.
  static void Type(const QStringList& keys, int apart, const Next& next);
  /// Presses each key once all has come to rest behind the one before.
  static void TypeWithCare(const QStringList& keys, const Next& next);
  /// Presses keys by their X names, and right behind the last key a click there, in that widget.
  static void TypeAndClick(const QStringList& keys, int apart, const QWidget& widget, QPoint at,
                           const Next& next);

 private:
  static void Run(const QStringList& arguments, int gestures, const Next& next);
};

/// Keeps all cores busy for the life of the object.
class BusyMachine {
 public:
  BusyMachine();
  ~BusyMachine();
  BusyMachine(BusyMachine&&) = delete;

 private:
  std::vector<int> processes_;
};

}  // namespace quorvane::test
