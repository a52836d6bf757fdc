#pragma once

#include <ctime>

namespace quorvane {

/// The parts of a moment in this machine's time zone. Threads may call it at once, which the
/// standard library's own may not be: the one call to the system in the module.
std::tm LocalTime(std::time_t moment);

}  // namespace quorvane
