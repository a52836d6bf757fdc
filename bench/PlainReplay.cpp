#include "bench/PlainReplay.h"

#include <cstdio>
#include <cstdlib>
#include <sqlite3.h>

#include "bench/Measure.h"

namespace quorvane::bench {
namespace {

/// SQLite adds numbers with `+`: the only thing that the texts need changed.
std::string ForSqlite(std::string text) {
  for (const std::string piece : {" + ' ' + ", " + ', ' + "}) {
    for (auto at = text.find(piece); at != std::string::npos; at = text.find(piece, at)) {
      auto joined = piece;
      joined.replace(joined.find('+'), 1, "||");
      joined.replace(joined.find('+'), 1, "||");
      text.replace(at, piece.size(), joined);
    }
  }
  return text;
}

void Check(int result, sqlite3* database, const std::string& text) {
  if (result == SQLITE_OK || result == SQLITE_ROW || result == SQLITE_DONE) return;
  std::fprintf(stderr, "%s: %s\n", sqlite3_errmsg(database), text.c_str());
  std::exit(1);
}

}  // namespace

double PlainReplay::Run(const std::string& file, const std::vector<std::string>& statements) {
  std::vector<std::string> texts;
  texts.reserve(statements.size());
  for (const auto& statement : statements) texts.push_back(ForSqlite(statement));
  sqlite3* database = nullptr;
  Check(sqlite3_open(file.c_str(), &database), database, file);
  Check(sqlite3_exec(database, "PRAGMA synchronous=FULL", nullptr, nullptr, nullptr), database, "");
  const Watch watch;
  for (const auto& text : texts) {
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr), database, text);
    auto result = sqlite3_step(statement);
    while (result == SQLITE_ROW) result = sqlite3_step(statement);
    Check(result, database, text);
    sqlite3_finalize(statement);
  }
  const auto time = watch.Seconds();
  sqlite3_close(database);
  return time;
}

}  // namespace quorvane::bench
