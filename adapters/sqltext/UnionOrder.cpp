#include "adapters/sqltext/UnionOrder.h"

#include <cstddef>

#include "adapters/sqltext/Tokens.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::sqltext {
namespace {

constexpr std::string_view kUnion = "UNION";

bool IsName(char c) { return KindOf(c) == CharKind::Word || c == '[' || c == '"'; }

/// Behind the token, or the blanks, that begin at `at`.
std::size_t EndOfPiece(std::string_view text, std::size_t at) {
  const auto blanks = EndOfBlanks(text, at);
  return blanks > at ? blanks : EndOfToken(text, at);
}

/// Behind the words ORDER BY of the whole UNION; the end of the text where there are none.
std::size_t BehindOrderBy(std::string_view text) {
  auto depth = 0;
  auto united = false;
  auto ordered = false;  // the last word was ORDER
  for (std::size_t at = 0; at < text.size();) {
    const auto end = EndOfPiece(text, at);
    const auto token = text.substr(at, end - at);
    at = end;
    if (token == "(") ++depth;
    if (token == ")") --depth;
    if (depth != 0 || KindOf(token.front()) != CharKind::Word) continue;
    if (ordered && EqualNoCase(token, "BY")) return at;
    united = united || EqualNoCase(token, kUnion);
    ordered = united && EqualNoCase(token, "ORDER");
  }
  return text.size();
}

}  // namespace

std::string OrderUnionByColumns(std::string_view statement) {
  if (!Says(statement, kUnion)) return std::string(statement);
  auto at = BehindOrderBy(statement);
  std::string result(statement.substr(0, at));
  while (at < statement.size()) {
    const auto end = EndOfPiece(statement, at);
    const auto qualifies = IsName(statement[at]) && end + 1 < statement.size() &&
                           statement[end] == '.' && IsName(statement[end + 1]);
    if (!qualifies) result += statement.substr(at, end - at);
    at = qualifies ? end + 1 : end;
  }
  return result;
}

}  // namespace quorvane::sqltext
