#include <sqlite3.h>

#include "bench/Replay.h"

namespace quorvane::bench {
namespace {

constexpr const char* kName = "sqlite3";

void Check(int result, sqlite3* database, const std::string& text) {
  if (result == SQLITE_OK || result == SQLITE_ROW || result == SQLITE_DONE) return;
  ReplayFailed(kName, sqlite3_errmsg(database), text);
}

}  // namespace

Time ReplayWithSqlite(const std::string& file, const std::vector<RecordedStatement>& statements) {
  std::vector<std::string> texts;
  texts.reserve(statements.size());
  for (const auto& statement : statements) texts.push_back(ForSqlite(statement.text));
  sqlite3* database = nullptr;
  Check(sqlite3_open(file.c_str(), &database), database, file);
  Check(sqlite3_exec(database, "PRAGMA synchronous=FULL", nullptr, nullptr, nullptr), database, "");
  const Watch watch;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database, texts[i].c_str(), -1, &statement, nullptr), database,
          texts[i]);
    std::size_t rows = 0;
    auto result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) ++rows;
    Check(result, database, texts[i]);
    sqlite3_finalize(statement);
    RequireRows(kName, statements[i], rows);
  }
  const auto time = watch.Passed();
  sqlite3_close(database);
  return time;
}

}  // namespace quorvane::bench
