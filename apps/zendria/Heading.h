#pragma once

#include <QLabel>
#include <QString>

namespace quorvane::zendria {

/// The name of the school over a question about it; whoever lays it out owns it.
inline QLabel* Heading(const QString& school) {
  constexpr double kLarger = 1.3;
  auto* const heading = new QLabel(school);
  heading->setTextFormat(Qt::PlainText);
  auto font = heading->font();
  font.setPointSizeF(font.pointSizeF() * kLarger);
  font.setBold(true);
  heading->setFont(font);
  return heading;
}

}  // namespace quorvane::zendria
