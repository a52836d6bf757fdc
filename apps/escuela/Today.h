#pragma once

#include <string>

#include "platform/data/Connection.h"

namespace quorvane {

/// The day that windows of dates are held against, as yyyy/mm/dd: the server's, else this
/// computer's.
std::string Today(Connection& school);

/// The same as it is printed, dd/mm/yyyy.
std::string PrintedToday(Connection& school);

}  // namespace quorvane
