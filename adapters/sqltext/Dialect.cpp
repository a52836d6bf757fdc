#include "adapters/sqltext/Dialect.h"

#include <span>

#include "adapters/sqltext/BracketedNames.h"
#include "adapters/sqltext/Concatenation.h"
#include "adapters/sqltext/ExcludedSelects.h"
#include "adapters/sqltext/NestedJoins.h"
#include "adapters/sqltext/RowOrder.h"
#include "adapters/sqltext/SingleValues.h"
#include "adapters/sqltext/UnionOrder.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::sqltext {
namespace {

using Rewriting = std::string (*)(std::string_view statement);

constexpr Rewriting kSqlite[] = {RewriteConcatenation, FlattenJoins};
constexpr Rewriting kSqlServer[] = {OrderUnionByColumns};
constexpr Rewriting kPostgreSql[] = {
    RewriteConcatenation, OrderUnionByColumns, TakeFirstOfComparedSelects,
    JoinExcludedSelects,  OrderAsInAFile,      QuoteBracketedNames};

std::span<const Rewriting> RewritingsFor(Engine engine) {
  switch (engine) {
    case Engine::Sqlite:
      return kSqlite;
    case Engine::SqlServer:
      return kSqlServer;
    case Engine::PostgreSql:
      return kPostgreSql;
    case Engine::Unknown:
      break;
  }
  return {};
}

}  // namespace

Engine EngineNamed(std::string_view product) {
  const auto name = AsciiLower(product);
  const auto names = [&name](const char* part) { return name.find(part) != std::string::npos; };
  if (names("sqlite")) return Engine::Sqlite;
  if (names("sql server") || names("freetds") || names("tdsodbc") || names("msodbcsql"))
    return Engine::SqlServer;
  if (names("postgres") || names("psqlodbc")) return Engine::PostgreSql;
  return Engine::Unknown;
}

std::string Put(std::string_view statement, Engine engine) {
  std::string text(statement);
  for (const auto rewrite : RewritingsFor(engine)) text = rewrite(text);
  return text;
}

}  // namespace quorvane::sqltext
