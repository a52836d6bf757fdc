#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/data/Connection.h"

namespace quorvane {

/// The values of a school's tables that the module can't read, or can't go on from, a finding a
/// column, in Spanish: numbers beyond their field and texts that are no number, which end a screen
/// with error 6 or 13; rows without their key, and a key behind which there is no other.
/// `connection` is open on a school that is fit for the module.
std::vector<std::string> BadValues(Connection& connection);

/// Whether every row of a table of the schema has a key that the module can read.
bool KeysFit(Connection& connection, std::string_view table);

}  // namespace quorvane
