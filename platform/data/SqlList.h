#pragma once

#include <concepts>
#include <cstdint>
#include <string>

#include "platform/data/Sql.h"

namespace quorvane {

/// Whole numbers for one place of a statement, parted by commas: "... NOT IN ({}) ...".
class SqlList {
 public:
  void Add(std::int32_t number) {
    if (!text_.empty()) text_ += ',';
    text_ += std::to_string(number);
  }

  [[nodiscard]] bool Empty() const noexcept { return text_.empty(); }

  /// "0", which is nobody's key, when there are none: an empty list is no SQL.
  [[nodiscard]] std::string Text() const { return text_.empty() ? "0" : text_; }

 private:
  std::string text_;
};

/// For `Sql`: as many texts as there are places.
std::string FillSql(std::string_view text, std::initializer_list<std::string> places);

inline std::string SqlPlace(const SqlList& list) { return list.Text(); }
inline std::string SqlPlace(SqlNumber auto number) { return std::to_string(number); }

/// A statement that has a list in one of its places at least.
template <class... Places>
requires(std::same_as<Places, SqlList> || ...) std::string
    Sql(SqlText<sizeof...(Places)> text, const Places&... places) {
  return FillSql(text.Text(), {SqlPlace(places)...});
}

}  // namespace quorvane
