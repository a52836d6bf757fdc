#pragma once

#include <string>

namespace quorvane {

/// A message of a program's as it may be printed: what an engine, a driver, a school or the user
/// has put into it can neither act on the terminal nor give a password away.
std::string Told(const std::string& message);

}  // namespace quorvane
