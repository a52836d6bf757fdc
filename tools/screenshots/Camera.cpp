#include "tools/screenshots/Camera.h"

#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QWidget>
#include <stdexcept>

namespace quorvane::screenshots {
namespace {

constexpr int kTitleHeight = 30;
constexpr int kMargin = 12;
constexpr int kIcon = 18;
constexpr QColor kTitleColour(222, 226, 231);
constexpr QColor kBorderColour(150, 156, 164);

void DrawTitle(QPainter& painter, const QWidget& window, const QRect& bar) {
  painter.fillRect(bar, kTitleColour);
  auto font = painter.font();
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::black);
  painter.drawText(bar, Qt::AlignCenter, window.windowTitle());
  const QRect icon(bar.left() + 8, bar.top() + (kTitleHeight - kIcon) / 2, kIcon, kIcon);
  window.windowIcon().paint(&painter, icon);
  const auto middle = bar.center().y();
  painter.setPen(QPen(Qt::black, 1.4));
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF cross(bar.right() - 22, middle - 4, 9, 9);
  painter.drawLine(cross.topLeft(), cross.bottomRight());
  painter.drawLine(cross.topRight(), cross.bottomLeft());
}

}  // namespace

void Camera::Retouch(const QWidget& window) const {
  for (auto* const label : window.findChildren<QLabel*>())
    label->setText(label->text().replace(hidden_, shown_));
  for (auto* const list : window.findChildren<QListWidget*>())
    for (int row = 0; row < list->count(); ++row)
      list->item(row)->setText(list->item(row)->text().replace(hidden_, shown_));
}

void Camera::Take(const QString& name, QWidget& window, QWidget* over) {
  if (Has(name)) return;
  Retouch(window);
  const auto inside = window.grab();
  const QRect whole(QPoint(kMargin, kMargin), window.size() + QSize(2, kTitleHeight + 2));
  auto bounds = whole;
  const auto origin = whole.topLeft() + QPoint(1, kTitleHeight + 1);
  QRect above;
  if (over != nullptr) {
    const auto at = over->mapToGlobal(QPoint()) - window.mapToGlobal(QPoint());
    above = QRect(origin + at, over->size());
    bounds = bounds.united(above);
  }
  // As fine as the screen.
  const auto scale = window.devicePixelRatio();
  QImage picture(QSize(bounds.right() + kMargin + 1, bounds.bottom() + kMargin + 1) * scale,
                 QImage::Format_ARGB32_Premultiplied);
  picture.setDevicePixelRatio(scale);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setFont(window.font());
  painter.drawPixmap(origin, inside);
  DrawTitle(painter, window, QRect(whole.topLeft(), QSize(whole.width(), kTitleHeight)));
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(kBorderColour);
  painter.drawRect(whole.adjusted(0, 0, -1, -1));
  if (over != nullptr) {
    painter.drawPixmap(above.topLeft(), over->grab());
    painter.drawRect(above.adjusted(-1, -1, 0, 0));
  }
  painter.end();
  const auto file = folder_.filePath(name + ".png");
  if (!picture.save(file)) throw std::runtime_error("No se puede escribir " + file.toStdString());
  taken_.insert(name);
}

}  // namespace quorvane::screenshots
