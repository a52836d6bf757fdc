#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "adapters/sqlite/PreparedStatement.h"
#include "adapters/sqlite/StatementShape.h"

namespace quorvane::sqlite {

/// Prepared statements by their lifted text. Holds so many; the one used longest ago goes first.
class StatementCache {
 public:
  explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}
  ~StatementCache() = default;
  StatementCache(const StatementCache&) = delete;
  StatementCache& operator=(const StatementCache&) = delete;
  StatementCache(StatementCache&&) = delete;
  StatementCache& operator=(StatementCache&&) = delete;

  /// The statement that followed the one used last when that was used before, if this one has its
  /// shape: programs run their statements in the same order again and again. With its values then;
  /// else null, and `values` are anything. Valid until the next `Add`.
  PreparedStatement* Following(std::string_view statement, std::vector<std::int64_t>& values);
  /// The statement kept for that lifted text, or null. Valid until the next `Add`.
  PreparedStatement* Find(std::string_view text);
  /// Keeps a statement for a shape whose text `Find` didn't find. Valid until the next `Add`.
  PreparedStatement& Add(StatementShape shape, PreparedStatement statement);

  [[nodiscard]] std::size_t Size() const noexcept { return byText_.size(); }

 private:
  struct Entry;
  using Entries = std::list<Entry>;
  struct Entry {
    StatementShape shape;
    PreparedStatement statement;
    Entries::iterator following;  ///< what came behind it last; the end for nothing
  };

  PreparedStatement& Use(Entries::iterator entry);
  void DropLast();

  std::size_t capacity_;
  Entries entries_;  ///< the one used last in front
  std::unordered_map<std::string_view, Entries::iterator> byText_;
};

}  // namespace quorvane::sqlite
