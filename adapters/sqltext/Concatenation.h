#pragma once

#include <string>
#include <string_view>

namespace quorvane::sqltext {

/// The module joins texts with `+`, which this engine only adds numbers with: writes `||` for each
/// `+` that has a text literal before or behind it.
std::string RewriteConcatenation(std::string_view statement);

}  // namespace quorvane::sqltext
