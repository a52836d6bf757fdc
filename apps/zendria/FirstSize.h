#pragma once

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace quorvane::zendria {

/// Gives a window its first size, or what a smaller screen has room for. `size` is for letters of
/// the usual size; larger ones get more.
inline void TakeFirstSize(QWidget& window, QSize size) {
  constexpr double kMostOfTheScreen = 0.95;
  constexpr double kUsualLine = 16;
  const auto larger = std::max(1.0, window.fontMetrics().height() / kUsualLine);
  window.resize((size * larger).boundedTo(window.screen()->availableSize() * kMostOfTheScreen));
}

}  // namespace quorvane::zendria
