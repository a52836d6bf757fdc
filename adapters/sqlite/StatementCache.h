#pragma once

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "adapters/sqlite/PreparedStatement.h"

namespace quorvane::sqlite {

/// Prepared statements by their lifted text. Holds so many; the one used longest ago goes first.
class StatementCache {
 public:
  explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}

  /// The statement kept for that text, or null. Valid until the next `Add`.
  PreparedStatement* Find(std::string_view text);
  /// Keeps a statement for a text that `Find` didn't find. Valid until the next `Add`.
  PreparedStatement& Add(std::string text, PreparedStatement statement);

  [[nodiscard]] std::size_t Size() const noexcept { return byText_.size(); }

 private:
  struct Entry {
    std::string text;
    PreparedStatement statement;
  };
  using Entries = std::list<Entry>;

  std::size_t capacity_;
  Entries entries_;  ///< the one used last in front
  std::unordered_map<std::string_view, Entries::iterator> byText_;
};

}  // namespace quorvane::sqlite
