#include "adapters/qt/window/WindowPlace.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cstdlib>

namespace quorvane::qt {
namespace {

constexpr int kRest = 200;  // milliseconds without news
constexpr int kMostLooks = 10;

}  // namespace

QRect WholeOn(QRect frame, const QRect& room) {
  frame.moveRight(std::min(frame.right(), room.right()));
  frame.moveBottom(std::min(frame.bottom(), room.bottom()));
  frame.moveLeft(std::max(frame.left(), room.left()));
  frame.moveTop(std::max(frame.top(), room.top()));
  return frame;
}

WindowPlace::WindowPlace(QWidget& window) : window_(window) {
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  QObject::connect(&rest_, &QTimer::timeout, &rest_, [this] { Look(); });
}

void WindowPlace::Ask(QSize size, std::optional<QPoint> corner) {
  if (size != asked_) {
    grown_ = grown_ || size.width() > asked_.width() || size.height() > asked_.height();
    former_.push_back(asked_);
    std::erase(former_, size);
  }
  asked_ = size;
  if (corner) corner_ = *corner;
  if (grown_) corner_ = CornerOnScreen();
  Put();
  looks_ = kMostLooks;
  rest_.start();
}

bool WindowPlace::Late() const {
  return window_.size() != asked_ &&
         std::find(former_.begin(), former_.end(), window_.size()) != former_.end();
}

void WindowPlace::TakeSize() {
  asked_ = window_.size();
  former_.clear();
  grown_ = false;
}

void WindowPlace::TakeCorner() {
  const auto by = window_.pos() - corner_;
  corner_ = window_.pos();
  const auto decoration = Decoration();
  if (decoration == decoration_) return;
  decoration_ = decoration;
  // As much as the frame that is known only now takes: nobody has moved the window.
  if (std::abs(by.x()) > decoration.width() || std::abs(by.y()) > decoration.height()) return;
  grown_ = true;
  Watch();
}

void WindowPlace::Watch() {
  if (!rest_.isActive()) looks_ = kMostLooks;
  rest_.start();
}

QSize WindowPlace::Decoration() const { return window_.frameGeometry().size() - window_.size(); }

QPoint WindowPlace::CornerOnScreen() const {
  const QRect frame(corner_, asked_ + Decoration());
  const auto* screen = QGuiApplication::screenAt(frame.center());
  if (screen == nullptr) screen = window_.screen();
  return WholeOn(frame, screen->availableGeometry()).topLeft();
}

void WindowPlace::Put() {
  window_.resize(asked_);
  // A layout can know better.
  asked_ = window_.size();
  window_.move(corner_);
  auto* const handle = window_.windowHandle();
  if (handle == nullptr || !window_.isVisible()) return;
  // A late answer can have made the widget believe that it stands there already, and left the
  // window with a place that it has no more.
  handle->resize(asked_);
  handle->setFramePosition(corner_);
}

void WindowPlace::Look() {
  if (!window_.isVisible()) return;
  decoration_ = Decoration();
  const auto corner = grown_ ? CornerOnScreen() : corner_;
  if (window_.size() == asked_ && corner == corner_) {
    grown_ = false;
    return;
  }
  if (--looks_ < 0) return;
  corner_ = corner;
  Put();
  rest_.start();
}

}  // namespace quorvane::qt
