#pragma once

#include <string>
#include <string_view>

#include "adapters/sqltext/Dialect.h"

namespace quorvane {

/// Appends a text to a statement as the engine takes it, of whatever letters it is.
void AppendQuoted(std::string& statement, std::string_view text, sqltext::Engine engine);

}  // namespace quorvane
