#include "tests/teclado/Rest.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>
#include <cstdlib>
#include <utility>
#include <xcb/xcb.h>

namespace quorvane::test {
namespace {

constexpr int kBetweenLooks = 5;   // milliseconds
constexpr int kQuietLooks = 3;     // in a row, for what one timer starts another ends
constexpr int kLongest = 3000;     // milliseconds that a gesture is waited for
constexpr int kPatience = 30'000;  // milliseconds that a window is waited for

/// The server answers once it has done all that it was asked before, and what it told meanwhile has
/// arrived.
void AskServer() {
  auto* const server = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
  std::free(xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
}

bool IsGesture(const QObject& watched, const QEvent& event) {
  // Of the window system, and as it reaches the window: what comes of it is the program's.
  return event.spontaneous() && watched.isWindowType() &&
         (event.type() == QEvent::KeyRelease || event.type() == QEvent::MouseButtonRelease);
}

bool Moves(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Expose:
    case QEvent::Move:
    case QEvent::Resize:
      return true;
    default:
      return false;
  }
}

bool HasKeyboard(const QWidget& window) {
  const auto* const handle = window.windowHandle();
  return handle != nullptr && handle->isExposed() && window.isActiveWindow() &&
         QApplication::focusWidget() != nullptr;
}

void WaitForKeyboard(const QWidget& window, const QElapsedTimer& since, const Rest::Next& next) {
  if (HasKeyboard(window) || since.hasExpired(kPatience)) return Rest::After(0, next);
  QTimer::singleShot(kBetweenLooks, &window,
                     [&window, since, next] { WaitForKeyboard(window, since, next); });
}

}  // namespace

void Rest::After(int gestures, const Next& next) { (new Rest(gestures))->Then(next); }

void Rest::In(const QWidget& window, const Next& next) {
  QElapsedTimer since;
  since.start();
  WaitForKeyboard(window, since, next);
}

Rest::Rest(int gestures) : awaited_(gestures) {
  qApp->installEventFilter(this);
  connect(&looks_, &QTimer::timeout, this, [this] { Look(); });
}

void Rest::Then(const Next& next) {
  next_ = next;
  since_.start();
  looks_.start(kBetweenLooks);
}

bool Rest::eventFilter(QObject* watched, QEvent* event) {
  if (IsGesture(*watched, *event)) --awaited_;
  moved_ = moved_ || Moves(event->type());
  return false;
}

bool Rest::Waits() const { return awaited_ > 0 && !since_.hasExpired(kLongest); }

void Rest::Look() {
  AskServer();
  quiet_ = std::exchange(moved_, false) || Waits() ? 0 : quiet_ + 1;
  if (quiet_ < kQuietLooks) return;
  looks_.stop();
  qApp->removeEventFilter(this);
  deleteLater();
  next_();
}

}  // namespace quorvane::test
