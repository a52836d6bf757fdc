#pragma once

#include <optional>
#include <string>

namespace quorvane {

/// What every program does before anything else. From here on a file that it makes, whichever
/// library makes it, is its owner's alone: they hold what a school knows of minors. And a standard
/// stream that was closed stays taken, so that no file of the program's gets its number.
void BeginProcess();

/// Why nothing that is written to standard output will arrive, as far as that can be known before;
/// in Spanish. To be called after `BeginProcess`.
std::optional<std::string> OutputTrouble();

/// Whether standard input was closed when the process began.
bool InputWasClosed();

}  // namespace quorvane
