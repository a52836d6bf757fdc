#include "tests/teclado/Hasty.h"

#include <QApplication>
#include <QProcess>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
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
  static constexpr std::array kMoving{
      QEvent::KeyPress, QEvent::KeyRelease, QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
      QEvent::FocusIn,  QEvent::FocusOut,   QEvent::WindowActivate,   QEvent::WindowDeactivate,
      QEvent::Show,     QEvent::Hide,       QEvent::Expose,           QEvent::Move,
      QEvent::Resize,
  };
  return std::find(kMoving.begin(), kMoving.end(), type) != kMoving.end();
}

void WaitForKeyboard(const QWidget& window, const QElapsedTimer& since, const Rest::Next& next) {
  const auto* const handle = window.windowHandle();
  const auto hasKeyboard = handle != nullptr && handle->isExposed() && window.isActiveWindow() &&
                           QApplication::focusWidget() != nullptr;
  if (hasKeyboard || since.hasExpired(kPatience)) return (new Rest(0))->Then(next);
  QTimer::singleShot(kBetweenLooks, &window,
                     [&window, since, next] { WaitForKeyboard(window, since, next); });
}

/// Keys that are let go: of "Shift+Tab" two.
int Gestures(const QStringList& keys) {
  auto gestures = 0;
  for (const auto& key : keys) gestures += static_cast<int>(key.count('+')) + 1;
  return gestures;
}

void RunTool(const QStringList& arguments, int gestures, const Rest::Next& next) {
  auto* const hands = new QProcess;
  auto* const rest = new Rest(gestures);
  QObject::connect(hands, &QProcess::finished, hands, [hands, rest, next](int status) {
    EXPECT_EQ(status, 0) << hands->readAllStandardError().toStdString();
    hands->deleteLater();
    rest->Then(next);
  });
  hands->start("xdotool", arguments);
}

QStringList KeyArguments(const QStringList& keys, int apart) {
  return QStringList{"key", "--delay", QString::number(apart)} + keys;
}

}  // namespace

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

void Rest::Look() {
  AskServer();
  const auto waits = awaited_ > 0 && !since_.hasExpired(kLongest);
  quiet_ = std::exchange(moved_, false) || waits ? 0 : quiet_ + 1;
  if (quiet_ < kQuietLooks) return;
  looks_.stop();
  qApp->removeEventFilter(this);
  deleteLater();
  next_();
}

void Hasty::Type(const QStringList& keys, int apart, const Next& next) {
  RunTool(KeyArguments(keys, apart), Gestures(keys), next);
}

void Hasty::TypeWithCare(const QStringList& keys, const Next& next) {
  if (keys.isEmpty()) return next();
  Type({keys.first()}, 0, [rest = keys.mid(1), next] { TypeWithCare(rest, next); });
}

void Hasty::TypeAndClick(const QStringList& keys, int apart, const QWidget& widget, QPoint at,
                         const Next& next) {
  const auto where = widget.mapToGlobal(at);
  const QStringList click{"mousemove", QString::number(where.x()), QString::number(where.y()),
                          "click", "1"};
  RunTool(KeyArguments(keys, apart) + click, Gestures(keys) + 1, next);
}

}  // namespace quorvane::test
