#pragma once

#include <cstdlib>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace quorvane::test {

/// The engine without the adapter: every text prepared afresh, to compare the adapter with.
class PlainDatabase {
 public:
  explicit PlainDatabase(const std::string& path) {
    if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) std::abort();
  }
  ~PlainDatabase() { sqlite3_close(handle_); }
  PlainDatabase(PlainDatabase&&) = delete;

  /// The rows, each as `1|text|NULL`, or one line "error TEXT".
  std::vector<std::string> Run(const std::string& statement) {
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

 private:
  sqlite3* handle_ = nullptr;
};

}  // namespace quorvane::test
