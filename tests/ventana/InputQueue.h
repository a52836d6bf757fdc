#pragma once

#include <QEvent>
#include <QGuiApplication>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QWindow>
#include <Qt>
#include <qpa/qwindowsysteminterface.h>

namespace quorvane::test {

/// Keyboard and mouse as the window system hands them over: what is put here waits in its queue,
/// also while a handler of the module runs and paints, and reaches whatever is there by then. Its
/// clock goes on by itself, so that what is a double click never hangs on the machine's speed.
class InputQueue {
 public:
  /// A key for that window, or for the one that has the keyboard when it is the key's turn.
  void Key(QWindow* window, Qt::Key key, Qt::KeyboardModifiers with = {},
           const QString& text = {}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      now_ += kMoment;
      System::handleKeyEvent<Later>(window, now_, type, key, with, text);
    }
  }
  /// The mouse goes to that place of the screen and is clicked there.
  void Click(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
    now_ += kPause;
    Move(place, Qt::NoButton);
    Press(place, button);
    Release(place, button);
  }
  void DoubleClick(QPoint place) {
    Click(place);
    Press(place, Qt::LeftButton);
    Release(place, Qt::LeftButton);
  }
  void Drag(QPoint from, QPoint to) {
    now_ += kPause;
    Move(from, Qt::NoButton);
    Press(from, Qt::LeftButton);
    Move((from + to) / 2, Qt::LeftButton);
    Move(to, Qt::LeftButton);
    Release(to, Qt::LeftButton);
  }
  void Wheel(QPoint place, int notches) {
    now_ += kMoment;
    // Not a template in this version: it is delivered as everything else is by default.
    auto* window = QGuiApplication::topLevelAt(place);
    if (window == nullptr) return;
    System::handleWheelEvent(window, now_, QPointF(window->mapFromGlobal(place)), QPointF(place),
                             {}, {0, notches * kNotch});
  }
  /// The X of that window.
  static void Close(QWindow* window) { System::handleCloseEvent<Later>(window); }

  /// Nothing waits.
  [[nodiscard]] static bool Empty() { return System::windowSystemEventsQueued() == 0; }

 private:
  using System = QWindowSystemInterface;
  using Later = QWindowSystemInterface::AsynchronousDelivery;
  static constexpr unsigned long kMoment = 5;     // milliseconds, as the next
  static constexpr unsigned long kPause = 10000;  // no two clicks across it are a double click
  static constexpr int kNotch = 120;

  void Press(QPoint place, Qt::MouseButton button) {
    now_ += kMoment;
    Put(place, button, button, QEvent::MouseButtonPress);
  }
  void Move(QPoint place, Qt::MouseButtons held) const {
    Put(place, held, Qt::NoButton, QEvent::MouseMove);
  }
  void Release(QPoint place, Qt::MouseButton button) {
    now_ += kMoment;
    Put(place, Qt::NoButton, button, QEvent::MouseButtonRelease);
  }
  void Put(QPoint place, Qt::MouseButtons held, Qt::MouseButton button, QEvent::Type type) const {
    System::handleMouseEvent<Later>(nullptr, now_, QPointF(place), QPointF(place), held, button,
                                    type);
  }

  unsigned long now_ = 1;
};

}  // namespace quorvane::test
