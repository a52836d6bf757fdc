#pragma once

#include <QScreen>
#include <QWidget>

namespace quorvane::zendria {

/// Gives a window its first size, or what a smaller screen has room for.
inline void TakeFirstSize(QWidget& window, QSize size) {
  constexpr double kMostOfTheScreen = 0.95;
  window.resize(size.boundedTo(window.screen()->availableSize() * kMostOfTheScreen));
}

}  // namespace quorvane::zendria
