#include "adapters/sqlite/StatementCache.h"

#include <utility>

namespace quorvane::sqlite {

PreparedStatement* StatementCache::Find(std::string_view text) {
  const auto found = byText_.find(text);
  if (found == byText_.end()) return nullptr;
  entries_.splice(entries_.begin(), entries_, found->second);
  return &found->second->statement;
}

PreparedStatement& StatementCache::Add(std::string text, PreparedStatement statement) {
  if (entries_.size() >= capacity_) {
    byText_.erase(entries_.back().text);
    entries_.pop_back();
  }
  entries_.push_front({std::move(text), std::move(statement)});
  byText_.emplace(entries_.front().text, entries_.begin());
  return entries_.front().statement;
}

}  // namespace quorvane::sqlite
