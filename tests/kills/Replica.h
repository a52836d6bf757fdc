#pragma once

#include <map>
#include <memory>
#include <sqlite3.h>
#include <sstream>
#include <stdexcept>
#include <string>

namespace quorvane::test {

/// A copy of a school in memory, on the engine alone, to which statements are applied that are
/// known to be in the school.
class Replica {
 public:
  /// All rows of all tables, by table.
  using Rows = std::map<std::string, std::string>;

  /// Of the school in that file, which is closed again.
  explicit Replica(const std::string& school) : handle_(Open(":memory:")) {
    Copy(Open(school).get(), handle_.get());
  }

  /// Fails with a runtime error of the language where the engine refuses it.
  void Apply(const std::string& statement) { Run(handle_.get(), statement); }
  [[nodiscard]] Rows All() const { return All(handle_.get()); }
  /// Writes it to a file of its own, as a school like any other.
  void Save(const std::string& path) const { Copy(handle_.get(), Open(path).get()); }

  /// The same of a file; throws unless the engine finds the file whole.
  static Rows AllOf(const std::string& school) {
    const auto handle = Open(school);
    const auto whole = Select(handle.get(), "PRAGMA integrity_check");
    if (whole != "ok\n") throw std::runtime_error("La base de datos está dañada: " + whole);
    return All(handle.get());
  }
  /// The first column of what a SELECT finds in a file.
  static std::string First(const std::string& school, const std::string& select) {
    const auto rows = Select(Open(school).get(), select);
    return rows.substr(0, rows.find('\n'));
  }

 private:
  static constexpr int kWait = 60000;

  static void Run(sqlite3* handle, const std::string& statement) {
    if (sqlite3_exec(handle, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
      throw std::runtime_error(statement + ": " + sqlite3_errmsg(handle));
  }

  /// All rows, a line each, values with | between.
  static std::string Select(sqlite3* handle, const std::string& select) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle, select.c_str(), -1, &statement, nullptr) != SQLITE_OK)
      throw std::runtime_error(select + ": " + sqlite3_errmsg(handle));
    std::string text;
    auto result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        text += (i == 0 ? "" : "|") + std::string(value == nullptr ? "NULL" : value);
      }
      text += '\n';
    }
    sqlite3_finalize(statement);
    if (result != SQLITE_DONE) throw std::runtime_error(select + ": " + sqlite3_errmsg(handle));
    return text;
  }

  static void Copy(sqlite3* from, sqlite3* to) {
    auto* const backup = sqlite3_backup_init(to, "main", from, "main");
    if (backup == nullptr) throw std::runtime_error(sqlite3_errmsg(to));
    sqlite3_backup_step(backup, -1);
    if (sqlite3_backup_finish(backup) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(to));
  }

  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
  };
  using Handle = std::unique_ptr<sqlite3, Closer>;

  static Handle Open(const std::string& path) {
    sqlite3* handle = nullptr;
    const auto result = sqlite3_open(path.c_str(), &handle);
    Handle owned(handle);
    if (result != SQLITE_OK) throw std::runtime_error(path + ": " + sqlite3_errmsg(handle));
    sqlite3_busy_timeout(handle, kWait);
    return owned;
  }

  static Rows All(sqlite3* handle) {
    Rows rows;
    std::istringstream tables(Select(handle, "SELECT name FROM sqlite_master WHERE type='table'"));
    for (std::string table; std::getline(tables, table);)
      rows[table] = Select(handle, "SELECT rowid,* FROM " + table + " ORDER BY rowid");
    return rows;
  }

  Handle handle_;
};

}  // namespace quorvane::test
