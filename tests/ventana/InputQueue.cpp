#include "tests/ventana/InputQueue.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointF>
#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

namespace quorvane::test {
namespace {

using System = QWindowSystemInterface;
using Later = QWindowSystemInterface::AsynchronousDelivery;

constexpr unsigned long kMoment = 5;     // milliseconds, as the next
constexpr unsigned long kPause = 10000;  // no two clicks across it are a double click
constexpr int kNotch = 120;

}  // namespace

void InputQueue::Key(QWindow* window, Qt::Key key, Qt::KeyboardModifiers with,
                     const QString& text) {
  now_ += kMoment;
  System::handleKeyEvent<Later>(window, now_, QEvent::KeyPress, key, with, text);
  now_ += kMoment;
  System::handleKeyEvent<Later>(window, now_, QEvent::KeyRelease, key, with, text);
}

void InputQueue::Move(QPoint place, Qt::MouseButtons held) {
  System::handleMouseEvent<Later>(nullptr, now_, QPointF(place), QPointF(place), held, Qt::NoButton,
                                  QEvent::MouseMove);
}

void InputQueue::Press(QPoint place, Qt::MouseButton button) {
  now_ += kMoment;
  System::handleMouseEvent<Later>(nullptr, now_, QPointF(place), QPointF(place), button, button,
                                  QEvent::MouseButtonPress);
}

void InputQueue::Release(QPoint place, Qt::MouseButton button) {
  now_ += kMoment;
  System::handleMouseEvent<Later>(nullptr, now_, QPointF(place), QPointF(place), Qt::NoButton,
                                  button, QEvent::MouseButtonRelease);
}

void InputQueue::Click(QPoint place, Qt::MouseButton button) {
  now_ += kPause;
  Move(place, Qt::NoButton);
  Press(place, button);
  Release(place, button);
}

void InputQueue::DoubleClick(QPoint place) {
  Click(place);
  Press(place, Qt::LeftButton);
  Release(place, Qt::LeftButton);
}

void InputQueue::Drag(QPoint from, QPoint to) {
  now_ += kPause;
  Move(from, Qt::NoButton);
  Press(from, Qt::LeftButton);
  Move((from + to) / 2, Qt::LeftButton);
  Move(to, Qt::LeftButton);
  Release(to, Qt::LeftButton);
}

void InputQueue::Wheel(QPoint place, int notches) {
  now_ += kMoment;
  // Not a template in this version: it is delivered as everything else is by default.
  auto* window = QGuiApplication::topLevelAt(place);
  if (window == nullptr) return;
  System::handleWheelEvent(window, now_, QPointF(window->mapFromGlobal(place)), QPointF(place), {},
                           {0, notches * kNotch});
}

void InputQueue::Close(QWindow* window) { System::handleCloseEvent<Later>(window); }

bool InputQueue::Empty() { return System::windowSystemEventsQueued() == 0; }

}  // namespace quorvane::test
