#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

class QWindow;

namespace quorvane::test {

/// Keyboard and mouse as the window system hands them over: what is put here waits in its queue,
/// also while a handler of the module runs and paints, and reaches whatever is there by then. Its
/// clock goes on by itself, so that what is a double click never hangs on the machine's speed.
class InputQueue {
 public:
  /// A key for that window, or for the one that has the keyboard when it is the key's turn.
  void Key(QWindow* window, Qt::Key key, Qt::KeyboardModifiers with = {}, const QString& text = {});
  /// The mouse goes to that place of the screen and is clicked there.
  void Click(QPoint place, Qt::MouseButton button = Qt::LeftButton);
  void DoubleClick(QPoint place);
  void Drag(QPoint from, QPoint to);
  void Wheel(QPoint place, int notches);
  /// The X of that window.
  static void Close(QWindow* window);

  /// Nothing waits.
  [[nodiscard]] static bool Empty();

 private:
  void Press(QPoint place, Qt::MouseButton button);
  void Move(QPoint place, Qt::MouseButtons held);
  void Release(QPoint place, Qt::MouseButton button);

  unsigned long now_ = 1;
};

}  // namespace quorvane::test
