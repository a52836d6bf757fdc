#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace quorvane {

/// The loop in which the grade forms insert a row under a new key. `intento` takes a key, executes
/// the INSERT and gives back the error number of the attempt. 0 ends the loop; 0x80004005, a key
/// that somebody else was quicker with, begins the next attempt, without limit; any other number
/// shows `mensaje`, with a beep, and ends it.
///
/// The forms set their error trap behind this loop, not round it, so that a statement that fails
/// leaves as an unhandled error and never gets as far as a number.
void InsertarConIntentos(const std::string& mensaje, const std::function<std::int32_t()>& intento);

}  // namespace quorvane
