#include "adapters/sqltext/ExcludedSelects.h"

#include <array>
#include <cstddef>

#include "adapters/sqltext/Tokens.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::sqltext {
namespace {

/// What is looked for, token by token; empty for any name.
constexpr std::array<std::string_view, 12> kPattern = {"FROM",   "", "WHERE", "", "NOT", "IN", "(",
                                                       "SELECT", "", "FROM",  "", ")"};
constexpr std::size_t kTable = 1;
constexpr std::size_t kColumn = 3;
constexpr std::size_t kInnerColumn = 8;
constexpr std::size_t kInnerTable = 10;

using Match = std::array<std::string_view, kPattern.size()>;

bool IsName(std::string_view token) { return KindOf(token.front()) == CharKind::Word; }

/// Whether the tokens from `at` on are such; they are left in `match` then.
bool Matches(std::string_view text, std::size_t at, Match& match) {
  for (std::size_t i = 0; i < kPattern.size(); ++i) {
    if (at == text.size()) return false;
    const auto end = EndOfToken(text, at);
    match[i] = text.substr(at, end - at);
    if (kPattern[i].empty() ? !IsName(match[i]) : !EqualNoCase(match[i], kPattern[i])) return false;
    at = EndOfBlanks(text, end);
  }
  // One table for both would hide the outer row's column.
  return !EqualNoCase(match[kTable], match[kInnerTable]);
}

std::string WithoutPartner(const Match& match) {
  const auto column = std::string(match[kTable]) + "." + std::string(match[kColumn]);
  const std::string inner(match[kInnerColumn]);
  const auto none = "NOT EXISTS (SELECT 1 FROM " + std::string(match[kInnerTable]);
  return "(" + none + " WHERE " + inner + "=" + column + ") AND " + none + " WHERE " + inner +
         " IS NULL) AND (" + column + " IS NOT NULL OR " + none + ")))";
}

}  // namespace

std::string JoinExcludedSelects(std::string_view statement) {
  if (!Says(statement, "NOT IN")) return std::string(statement);
  std::string result;
  result.reserve(2 * statement.size());
  for (std::size_t at = 0; at < statement.size();) {
    const auto blanks = EndOfBlanks(statement, at);
    result += statement.substr(at, blanks - at);
    if ((at = blanks) == statement.size()) break;
    auto end = EndOfToken(statement, at);
    if (Match match; Matches(statement, at, match)) {
      end = static_cast<std::size_t>(match.back().data() + 1 - statement.data());
      const auto before = static_cast<std::size_t>(match[kColumn].data() - statement.data());
      result += statement.substr(at, before - at);
      result += WithoutPartner(match);
    } else {
      result += statement.substr(at, end - at);
    }
    at = end;
  }
  return result;
}

}  // namespace quorvane::sqltext
