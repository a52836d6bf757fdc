#include "adapters/sqlite/StatementCache.h"

#include <iterator>
#include <utility>

namespace quorvane::sqlite {

PreparedStatement* StatementCache::Following(std::string_view statement,
                                             std::vector<std::int64_t>& values) {
  if (entries_.empty()) return nullptr;
  const auto following = entries_.front().following;
  if (following == entries_.end() || !following->shape.Fits(statement, values)) return nullptr;
  return &Use(following);
}

PreparedStatement* StatementCache::Find(std::string_view text) {
  const auto found = byText_.find(text);
  return found == byText_.end() ? nullptr : &Use(found->second);
}

PreparedStatement& StatementCache::Add(StatementShape shape, PreparedStatement statement) {
  if (entries_.size() >= capacity_) DropLast();
  entries_.push_back({std::move(shape), std::move(statement), entries_.end()});
  const auto added = std::prev(entries_.end());
  byText_.emplace(added->shape.Text(), added);
  return Use(added);
}

PreparedStatement& StatementCache::Use(Entries::iterator entry) {
  entries_.front().following = entry;
  entries_.splice(entries_.begin(), entries_, entry);
  return entry->statement;
}

void StatementCache::DropLast() {
  const auto last = std::prev(entries_.end());
  for (auto& entry : entries_)
    if (entry.following == last) entry.following = entries_.end();
  byText_.erase(last->shape.Text());
  entries_.erase(last);
}

}  // namespace quorvane::sqlite
