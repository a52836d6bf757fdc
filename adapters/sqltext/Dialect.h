#pragma once

#include <string>
#include <string_view>

namespace quorvane::sqltext {

/// The engines whose way of putting a statement is known.
enum class Engine { Unknown, Sqlite, SqlServer, PostgreSql };

/// The engine by what its driver calls it, as in "Microsoft SQL Server", or by the driver's own
/// name or file, where those tell.
Engine EngineNamed(std::string_view product);

/// The module's statement as that engine takes it: all rewritings that it needs, in their order. An
/// unknown engine gets the text as it is. What reaches the trace and the observers is the module's.
std::string Put(std::string_view statement, Engine engine);

}  // namespace quorvane::sqltext
