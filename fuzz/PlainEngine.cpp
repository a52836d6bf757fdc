#include "fuzz/PlainEngine.h"

#include <algorithm>
#include <sqlite3.h>

#include "adapters/sqltext/FieldName.h"
#include "adapters/sqltext/Tokens.h"
#include "fuzz/Fail.h"
#include "platform/RuntimeError.h"
#include "platform/data/Value.h"

namespace quorvane::fuzz {
namespace {

std::string Cell(const Value& value) {
  if (value.IsNull()) return "NULL|";
  return (value.IsText() ? "'" : "") + value.Text() + "|";
}

/// A computed column without a name of its own goes by its text as the engine was given it; nobody
/// asks for it by that.
std::string NameOf(const std::string& name) {
  const auto word = std::all_of(name.begin(), name.end(), sqltext::IsWordPart);
  return word ? name : "(expression)";
}

Value ColumnValue(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
      return {std::int64_t{sqlite3_column_int64(statement, column)}};
    case SQLITE_FLOAT:
      return {sqlite3_column_double(statement, column)};
    case SQLITE_NULL:
      return {};
    default: {
      const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
      return {bytes == nullptr ? std::string() : std::string(bytes, size)};
    }
  }
}

}  // namespace

std::string Outcome::Text() const {
  if (!error.empty()) return "error " + error + "\n";
  std::string text;
  for (const auto& name : names) text += name + "|";
  text += "\n";
  for (const auto& row : rows) text += row + "\n";
  return text;
}

PlainEngine::PlainEngine(const std::string& path) {
  if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) Fail("no database " + path);
}

PlainEngine::~PlainEngine() { sqlite3_close(handle_); }

Outcome PlainEngine::Run(const std::string& statement) {
  Outcome outcome;
  sqlite3_stmt* prepared = nullptr;
  auto result = sqlite3_prepare_v2(handle_, statement.c_str(), -1, &prepared, nullptr);
  if (result == SQLITE_OK && prepared != nullptr) {
    const auto columns = sqlite3_column_count(prepared);
    for (int i = 0; i < columns; ++i)
      outcome.names.push_back(
          NameOf(sqltext::FieldName(sqlite3_column_name(prepared, i), statement)));
    while ((result = sqlite3_step(prepared)) == SQLITE_ROW) {
      std::string row;
      for (int i = 0; i < columns; ++i) row += Cell(ColumnValue(prepared, i));
      outcome.rows.push_back(std::move(row));
    }
  }
  if (result != SQLITE_DONE && result != SQLITE_OK) outcome = {{}, {}, sqlite3_errmsg(handle_)};
  sqlite3_finalize(prepared);
  std::sort(outcome.rows.begin(), outcome.rows.end());
  return outcome;
}

Outcome RunThrough(Connection& connection, const std::string& statement) {
  Outcome outcome;
  try {
    auto rows = connection.Execute(statement);
    if (!rows.IsOpen()) return outcome;
    for (const auto& name : rows.Names()) outcome.names.push_back(NameOf(name));
    for (; !rows.Eof(); rows.MoveNext()) {
      std::string row;
      for (std::size_t i = 0; i < rows.Names().size(); ++i) row += Cell(rows.Fields(i));
      outcome.rows.push_back(std::move(row));
    }
  } catch (const RuntimeError& error) {
    return {{}, {}, error.Description()};
  }
  std::sort(outcome.rows.begin(), outcome.rows.end());
  return outcome;
}

}  // namespace quorvane::fuzz
