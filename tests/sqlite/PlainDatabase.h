#pragma once

#include <string>
#include <vector>

struct sqlite3;

namespace quorvane::test {

/// The engine without the adapter: every text prepared afresh, to compare the adapter with.
class PlainDatabase {
 public:
  explicit PlainDatabase(const std::string& path);
  ~PlainDatabase();
  PlainDatabase(PlainDatabase&&) = delete;

  /// The rows, each as `1|text|NULL`, or one line "error TEXT".
  std::vector<std::string> Run(const std::string& statement);

 private:
  sqlite3* handle_ = nullptr;
};

}  // namespace quorvane::test
