#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"

struct sqlite3;

namespace quorvane::fuzz {

/// What a statement gave: the names of its columns and its rows, or the error's text alone.
struct Outcome {
  std::vector<std::string> names;
  std::vector<std::string> rows;  ///< sorted, but for the order of the engine's own choice
  std::string error;

  friend bool operator==(const Outcome&, const Outcome&) = default;
  [[nodiscard]] std::string Text() const;
};

/// The engine without the adapter: every text as it stands, prepared afresh.
class PlainEngine {
 public:
  explicit PlainEngine(const std::string& path);
  ~PlainEngine();
  PlainEngine(const PlainEngine&) = delete;
  PlainEngine& operator=(const PlainEngine&) = delete;
  PlainEngine(PlainEngine&&) = delete;
  PlainEngine& operator=(PlainEngine&&) = delete;

  Outcome Run(const std::string& statement);

 private:
  sqlite3* handle_ = nullptr;
};

/// The same through the adapter.
Outcome RunThrough(Connection& connection, const std::string& statement);

}  // namespace quorvane::fuzz
