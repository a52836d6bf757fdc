#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

namespace quorvane::zendria {

/// What the user asked for when starting the host.
struct CommandLine {
  std::string file;  ///< the school; empty for none
  std::string odbc;  ///< in its place, a connection string
  std::optional<std::int32_t> user;
};

/// How the host ends.
enum class ExitStatus { Ok = 0, NoSchool = 1, BadArguments = 2, NoDisplay = 3, LeftBadly = 4 };

/// Reads the arguments. Without a result there is nothing more to do but to end with `status`: the
/// help has been written to `out`, or what is wrong to `err`.
std::optional<CommandLine> ReadCommandLine(int argc, const char* const* argv, std::ostream& out,
                                           std::ostream& err, ExitStatus& status);

}  // namespace quorvane::zendria
