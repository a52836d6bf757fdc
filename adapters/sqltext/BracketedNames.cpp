#include "adapters/sqltext/BracketedNames.h"

#include <algorithm>
#include <cstddef>

#include "adapters/sqltext/Tokens.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::sqltext {

std::string QuoteBracketedNames(std::string_view statement) {
  if (statement.find('[') == std::string_view::npos) return std::string(statement);
  std::string result;
  result.reserve(statement.size());
  for (std::size_t at = 0; at < statement.size();) {
    const auto isQuote = KindOf(statement[at]) == CharKind::Quote;
    const auto end =
        isQuote ? EndOfQuoted(statement, at) : std::max(at + 1, EndOfBlanks(statement, at));
    const auto token = statement.substr(at, end - at);
    const auto bracketed = token.size() > 2 && token.front() == '[' && token.back() == ']';
    if (bracketed && token.find('"') == std::string_view::npos)
      result += '"' + AsciiLower(token.substr(1, token.size() - 2)) + '"';
    else
      result += token;
    at = end;
  }
  return result;
}

}  // namespace quorvane::sqltext
