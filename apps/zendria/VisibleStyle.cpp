#include "apps/zendria/VisibleStyle.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

namespace quorvane::zendria {
namespace {

constexpr double kHint = 0.6;  // of the way from the ground's colour to the text's
constexpr double kLeastContrast = 3;

/// How light a colour is for the eye, from 0 to 1.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor Between(const QColor& from, const QColor& to, double way) {
  const auto part = [way](float a, float b) { return a + static_cast<float>(way) * (b - a); };
  return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                          part(from.blueF(), to.blueF()));
}

/// A colour that lets the ground through, as it is seen.
QColor Seen(const QColor& colour, const QColor& ground) {
  return Between(ground, colour.rgb(), colour.alphaF());
}

}  // namespace

void VisibleStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const auto ground = palette.color(group, QPalette::Base);
    const auto hint = Seen(palette.color(group, QPalette::PlaceholderText), ground);
    if (Contrast(hint, ground) >= kLeastContrast) continue;
    palette.setColor(group, QPalette::PlaceholderText,
                     Between(ground, palette.color(group, QPalette::Text), kHint));
  }
}

void VisibleStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const auto& palette = option->palette;
  const auto ground = palette.color(QPalette::Window);
  const auto round = element == PE_IndicatorRadioButton;
  if ((element != PE_IndicatorCheckBox && !round) ||
      Luminance(ground) >= Luminance(palette.color(QPalette::WindowText)))
    return;
  painter->save();
  painter->setPen(Between(ground, palette.color(QPalette::WindowText), kHint));
  painter->setBrush(Qt::NoBrush);
  if (round) {
    painter->setRenderHint(QPainter::Antialiasing);
    painter->drawEllipse(QRectF(option->rect).adjusted(1, 1, -1, -1));
  } else {
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  }
  painter->restore();
}

}  // namespace quorvane::zendria
