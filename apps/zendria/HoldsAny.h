#pragma once

#include <QString>
#include <algorithm>
#include <vector>

namespace quorvane::zendria {

/// Whether one of the parts, each in UTF-8, stands in the text.
inline bool HoldsAny(const QString& text, const std::vector<const char*>& parts) {
  return std::any_of(parts.begin(), parts.end(),
                     [&text](const char* part) { return text.contains(QString::fromUtf8(part)); });
}

}  // namespace quorvane::zendria
