#include "tests/sqlite/PlainDatabase.h"

#include <cstdlib>
#include <sqlite3.h>

namespace quorvane::test {

PlainDatabase::PlainDatabase(const std::string& path) {
  if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) std::abort();
}

PlainDatabase::~PlainDatabase() { sqlite3_close(handle_); }

std::vector<std::string> PlainDatabase::Run(const std::string& statement) {
  std::vector<std::string> rows;
  sqlite3_stmt* prepared = nullptr;
  sqlite3_prepare_v2(handle_, statement.c_str(), -1, &prepared, nullptr);
  auto result = sqlite3_errcode(handle_);
  while (prepared != nullptr && (result = sqlite3_step(prepared)) == SQLITE_ROW) {
    std::string row;
    for (int i = 0; i < sqlite3_column_count(prepared); ++i) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(prepared, i));
      if (i > 0) row += '|';
      row += text == nullptr ? "NULL" : text;
    }
    rows.push_back(row);
  }
  if (result != SQLITE_DONE) rows = {std::string("error ") + sqlite3_errmsg(handle_)};
  sqlite3_finalize(prepared);
  return rows;
}

}  // namespace quorvane::test
