#pragma once

#include <cstddef>
#include <string>

#include "platform/data/Recordset.h"

namespace quorvane {

/// Without the blanks round it that old programs pad their texts with.
std::string Trimmed(const std::string& text);

/// "Surnames, Name", of which either may be missing.
std::string FullName(const std::string& first, const std::string& second, const std::string& name);

/// The same of three columns of the current row, the first surname at `at`.
std::string FullName(const Recordset& rows, std::size_t at);

}  // namespace quorvane
