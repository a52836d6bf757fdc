#pragma once

#include <cstddef>
#include <istream>
#include <optional>
#include <vector>

#include "adapters/guion/language/Command.h"

namespace quorvane::guion {

/// Reads a script to its end and checks the whole of its syntax, so that a script with a mistake
/// does nothing at all. Empty lines and comments give no command. Throws `ScriptError` for an
/// unknown command, missing, surplus or ill-formed arguments, text that isn't UTF-8, and
/// a stream that fails before its end.
std::vector<Command> ParseScript(std::istream& script);

/// The next command of a script that is still being written, as by somebody at a terminal or a
/// program at the other end of a pipe; none at its end. `line` is that of the last one read, 0 at
/// first. Throws as above.
std::optional<Command> ReadCommand(std::istream& script, std::size_t& line);

}  // namespace quorvane::guion
