#include "adapters/qt/window/BusySign.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace quorvane::qt {
namespace {

constexpr int kDots = 12;
constexpr int kMillisecondsADot = 80;

}  // namespace

BusySign::BusySign(QWidget* parent) : QWidget(parent) {
  repaint_.setInterval(kMillisecondsADot / 2);
  connect(&repaint_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

void BusySign::Run(bool running) {
  if (running == running_) return;
  running_ = running;
  if (running) {
    since_.start();
    repaint_.start();
  } else {
    repaint_.stop();
  }
  update();
}

int BusySign::Leader() const {
  return running_ ? static_cast<int>(since_.elapsed() / kMillisecondsADot % kDots) : 0;
}

void BusySign::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  const double size = std::min({width(), height(), 56});
  const double dot = size / 11;
  const double ring = size / 2 - dot - 1;
  auto colour = palette().color(QPalette::Highlight);
  const auto centre = QRectF(rect()).center();
  for (int i = 0; i < kDots; ++i) {
    const auto behind = (Leader() - i + kDots) % kDots;
    colour.setAlphaF(static_cast<float>(1.0 - 0.075 * behind));
    painter.setBrush(colour);
    const auto angle = 2 * M_PI * i / kDots;
    painter.drawEllipse(centre + QPointF(ring * std::sin(angle), -ring * std::cos(angle)), dot,
                        dot);
  }
}

}  // namespace quorvane::qt
