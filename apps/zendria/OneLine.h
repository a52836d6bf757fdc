#pragma once

#include <QString>
#include <string>

namespace quorvane::zendria {

/// A text of the school's as it is put into a line of ours: its breaks and runs of blanks are one.
inline QString OneLine(const std::string& text) {
  return QString::fromStdString(text).simplified();
}

/// The same of a grade, which may have been taken away.
inline QString OneLineGrade(const std::string& text) {
  const auto line = OneLine(text);
  return line.isEmpty() ? QStringLiteral("(en blanco)") : line;
}

}  // namespace quorvane::zendria
