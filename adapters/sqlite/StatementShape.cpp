#include "adapters/sqlite/StatementShape.h"

#include "adapters/sqltext/Tokens.h"

namespace quorvane::sqlite {

bool ReadNumber(std::string_view statement, std::size_t& at, std::int64_t& value) {
  constexpr std::size_t kMostDigits = 18;
  const auto begin = at;
  value = 0;
  for (; at < statement.size() && sqltext::KindOf(statement[at]) == sqltext::CharKind::Digit; ++at)
    if (at - begin < kMostDigits) value = 10 * value + (statement[at] - '0');
  return at != begin && at - begin <= kMostDigits;
}

// What begins a number was lifted as one from the same text before it; what follows it in the
// shape is neither a digit nor anything else that would go on with it.
bool StatementShape::Fits(std::string_view statement, std::vector<std::int64_t>& values) const {
  const std::string_view text = text_;
  values.clear();
  std::size_t at = 0;
  std::size_t piece = 0;
  for (const auto gap : gaps_) {
    const auto length = gap - piece;
    if (statement.substr(at, length) != text.substr(piece, length)) return false;
    at += length;
    piece = gap + 1;
    if (!ReadNumber(statement, at, values.emplace_back())) return false;
  }
  return statement.substr(at) == text.substr(piece);
}

}  // namespace quorvane::sqlite
