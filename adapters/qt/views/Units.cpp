#include "adapters/qt/views/Units.h"

#include <QApplication>
#include <QFontMetrics>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace quorvane::qt {
namespace {

constexpr double kTwipsPerInch = 1440.0;
/// The mean width of a letter of the font that the forms are drawn for, in inches.
constexpr double kLetter = 6.0 / 96.0;

double PixelsPerTwip() {
  const auto* screen = QGuiApplication::primaryScreen();
  const auto inch = screen == nullptr ? 96.0 : screen->logicalDotsPerInchX();
  const QString letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const auto letter = QFontMetrics(QApplication::font()).horizontalAdvance(letters) /
                      static_cast<double>(letters.size());
  return std::max(1.0, letter / (kLetter * inch)) * inch / kTwipsPerInch;
}

}  // namespace

int Pixels(std::int32_t twips) { return static_cast<int>(std::lround(twips * PixelsPerTwip())); }

std::int32_t Twips(int pixels) {
  return static_cast<std::int32_t>(std::lround(pixels / PixelsPerTwip()));
}

QString LineText(const std::string& utf8) {
  auto text = Text(utf8);
  return text.replace("\r\n", " ").replace('\n', ' ').replace('\r', ' ');
}

}  // namespace quorvane::qt
