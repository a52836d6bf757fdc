#pragma once

#include <string>

namespace quorvane {

/// Spanish alphabetical order, without regard to case or accents, ñ between n and o.
bool SpanishLess(const std::string& one, const std::string& other);

/// Texts that are numbers before all others, by value; the others in Spanish order.
bool NumbersThenSpanishLess(const std::string& one, const std::string& other);

}  // namespace quorvane
