#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/data/Value.h"

namespace quorvane {

/// The conditions of a recordset's filter: comparisons of a column with a number or a text in
/// single quotes (=, <>, <, <=, >, >=), joined by AND. A Null column satisfies none.
class RecordsetFilter {
 public:
  /// Error 3001 for a text that can't be read, 3265 for a column that isn't among `names`.
  RecordsetFilter(const std::string& conditions, const std::vector<std::string>& names);

  [[nodiscard]] bool Empty() const noexcept { return conditions_.empty(); }
  /// `row` points at as many values as there were names.
  [[nodiscard]] bool Passes(const Value* row) const;

 private:
  struct Condition {
    std::size_t column = 0;
    std::string comparison;
    Value value;
  };

  static bool Holds(const Condition& condition, const Value& value);

  std::vector<Condition> conditions_;
};

}  // namespace quorvane
