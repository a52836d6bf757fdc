#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/StatementShape.h"

namespace quorvane::sqlite {

/// Lifts the integer literals out of statements, so that all statements of one shape share one
/// prepared statement. Keeps its buffers from one statement to the next.
class StatementLifter {
 public:
  /// True when `Text()` with `Values()` bound in order stands for the statement; there may be no
  /// values. False for what is not lifted: other statements than SELECT, INSERT, UPDATE and DELETE,
  /// with parameters or comments of their own, of several statements, or with too many literals.
  ///
  /// A literal stays in the text where it is no value: in the columns of a SELECT, which it gives
  /// its name to, and from GROUP BY or ORDER BY on, where it counts columns.
  bool Lift(std::string_view statement);

  /// The statement with a question mark in each literal's place. Valid until the next `Lift`.
  [[nodiscard]] const std::string& Text() const noexcept { return text_; }
  [[nodiscard]] const std::vector<std::int64_t>& Values() const noexcept { return values_; }
  /// What all statements lifted to this text share.
  [[nodiscard]] StatementShape Shape() const { return {text_, gaps_}; }

 private:
  bool Word(std::string_view word);
  bool Number(std::string_view statement, std::size_t& at);

  std::string text_;
  std::vector<std::int64_t> values_;
  std::vector<std::size_t> gaps_;  ///< where the question marks stand in the text
  bool inColumns_ = false;         ///< between SELECT and FROM
  bool ended_ = false;             ///< behind GROUP BY or ORDER BY
};

}  // namespace quorvane::sqlite
