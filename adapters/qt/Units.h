#pragma once

#include <QGuiApplication>
#include <QScreen>
#include <QString>
#include <cmath>
#include <cstdint>
#include <string>

namespace quorvane::qt {

constexpr double kTwipsPerInch = 1440.0;

/// Logical pixels of an inch, as Qt's own fonts are measured.
inline double PixelsPerInch() {
  const auto* screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? 96.0 : screen->logicalDotsPerInchX();
}

inline int Pixels(std::int32_t twips) {
  return static_cast<int>(std::lround(twips * PixelsPerInch() / kTwipsPerInch));
}

inline std::int32_t Twips(int pixels) {
  return static_cast<std::int32_t>(std::lround(pixels * kTwipsPerInch / PixelsPerInch()));
}

inline QString Text(const std::string& utf8) { return QString::fromStdString(utf8); }

}  // namespace quorvane::qt
