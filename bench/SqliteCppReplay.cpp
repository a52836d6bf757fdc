#include <SQLiteCpp/SQLiteCpp.h>

#include "bench/Replay.h"

namespace quorvane::bench {

Time ReplayWithSqliteCpp(const std::string& file,
                         const std::vector<RecordedStatement>& statements) {
  constexpr const char* kName = "SQLiteCpp";
  std::vector<std::string> texts;
  texts.reserve(statements.size());
  for (const auto& statement : statements) texts.push_back(ForSqlite(statement.text));
  std::size_t i = 0;
  try {
    SQLite::Database database(file, SQLite::OPEN_READWRITE);
    database.exec("PRAGMA synchronous=FULL");
    const Watch watch;
    for (; i < texts.size(); ++i) {
      SQLite::Statement statement(database, texts[i]);
      std::size_t rows = 0;
      while (statement.executeStep()) ++rows;
      RequireRows(kName, statements[i], rows);
    }
    return watch.Passed();
  } catch (const SQLite::Exception& error) {
    ReplayFailed(kName, error.what(), i < texts.size() ? texts[i] : file);
  }
}

}  // namespace quorvane::bench
