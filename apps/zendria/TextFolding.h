#pragma once

#include <QString>

namespace quorvane::zendria {

/// The text as searches compare it: without regard to case and accents.
QString Folded(const QString& text);

/// Every word of `wanted` stands somewhere in `text`; both folded. An empty `wanted` does.
bool HoldsWords(const QString& text, const QString& wanted);

}  // namespace quorvane::zendria
