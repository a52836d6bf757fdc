#pragma once

#include <QString>
#include <cstdint>
#include <string>

namespace quorvane::qt {

// The forms measure in twips, 1440 to the inch, for a font that most screens no longer have. As
// dialogs of that time did, the screen's inch is stretched by as much as letters are wider now:
// what is drawn to hold a text holds it in any font.

int Pixels(std::int32_t twips);
std::int32_t Twips(int pixels);

inline QString Text(const std::string& utf8) { return QString::fromStdString(utf8); }

/// A text for an entry or a cell, which are a line each: with blanks for its line breaks.
QString LineText(const std::string& utf8);

}  // namespace quorvane::qt
