#pragma once

#include <string>
#include <vector>

namespace quorvane::odbc {

class Diagnostics;

/// What a server's refusal of a statement means, in the user's words, to stand behind the driver's:
/// ". El disco del servidor está lleno…". Empty where those have to do.
std::string WordsFor(const Diagnostics& diagnostics);

/// What the user can do about a connection by that string that doesn't come to be, likewise.
std::string Advice(const Diagnostics& diagnostics, const std::string& connectionString);

/// To whom names the driver of another.
inline constexpr auto kSupportedEngines =
    "Solo se admiten PostgreSQL desde la 12, SQL Server y SQLite";

/// What drivers say, one of them, of a user that the server doesn't know or whose password is
/// wrong; what stands in brackets is a number.
const std::vector<const char*>& LoginSigns();

}  // namespace quorvane::odbc
