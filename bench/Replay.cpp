#include "bench/Replay.h"

#include <cstdio>
#include <cstdlib>

namespace quorvane::bench {

const std::vector<Library>& Libraries() {
  static const std::vector<Library> libraries = {
      {"sqlite3", ReplayWithSqlite},
      {"SQLiteCpp", ReplayWithSqliteCpp},
#ifdef QUORVANE_BENCH_QT
      {"Qt SQL", ReplayWithQt},
#endif
  };
  return libraries;
}

bool HasQt() {
#ifdef QUORVANE_BENCH_QT
  return true;
#else
  return false;
#endif
}

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

void RequireRows(const char* library, const RecordedStatement& statement, std::size_t rows) {
  if (rows == statement.rows) return;
  ReplayFailed(
      library,
      "gives " + std::to_string(rows) + " rows, the module got " + std::to_string(statement.rows),
      statement.text);
}

void ReplayFailed(const char* library, const std::string& reason, const std::string& text) {
  std::fprintf(stderr, "%s: %s: %s\n", library, reason.c_str(), text.c_str());
  std::exit(1);
}

}  // namespace quorvane::bench
