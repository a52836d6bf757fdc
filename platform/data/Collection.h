#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/RuntimeError.h"

namespace quorvane {

/// The key under which a collection holds the object with that id: its decimal text.
inline std::string Key(std::int64_t id) { return std::to_string(id); }

/// A keyed collection of shared objects that keeps the order of its adds.
template <class T>
class Collection {
 public:
  using Item = std::shared_ptr<T>;

  /// Error 457 when the key is there already; then nothing changes.
  void Add(Item item, const std::string& key) {
    if (!positions_.emplace(key, items_.size()).second)
      throw RuntimeError(ErrorNumber::DuplicateKey);
    items_.push_back(std::move(item));
  }

  /// Error 5 when there is no such key.
  [[nodiscard]] const Item& operator[](const std::string& key) const {
    return items_[Position(key)];
  }

  [[nodiscard]] bool Contains(const std::string& key) const { return positions_.contains(key); }

  /// Error 5 when there is no such key.
  void Remove(const std::string& key) {
    const auto position = Position(key);
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(position));
    positions_.erase(key);
    for (auto& entry : positions_)
      if (entry.second > position) --entry.second;
  }

  void Clear() { *this = Collection(); }

  [[nodiscard]] std::size_t Count() const noexcept { return items_.size(); }
  [[nodiscard]] auto begin() const noexcept { return items_.begin(); }
  [[nodiscard]] auto end() const noexcept { return items_.end(); }

  /// The items as they are now: to walk while items are removed.
  [[nodiscard]] std::vector<Item> Snapshot() const { return items_; }

 private:
  [[nodiscard]] std::size_t Position(const std::string& key) const {
    const auto found = positions_.find(key);
    if (found == positions_.end()) throw RuntimeError(ErrorNumber::InvalidCall);
    return found->second;
  }

  std::vector<Item> items_;
  std::unordered_map<std::string, std::size_t> positions_;
};

}  // namespace quorvane
