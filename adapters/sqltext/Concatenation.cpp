#include "adapters/sqltext/Concatenation.h"

#include "adapters/sqltext/Tokens.h"

namespace quorvane::sqltext {

std::string RewriteConcatenation(std::string_view statement) {
  if (statement.find('+') == std::string_view::npos) return std::string(statement);
  std::string result;
  result.reserve(statement.size() + 8);
  auto afterText = false;  // the last token was a text literal
  for (std::size_t at = 0; at < statement.size();) {
    auto end = EndOfBlanks(statement, at);
    if (end == at) {
      const auto c = statement[at];
      end = KindOf(c) == CharKind::Quote ? EndOfQuoted(statement, at) : at + 1;
      if (c == '+') {
        const auto next = EndOfBlanks(statement, end);
        const auto beforeText = next < statement.size() && statement[next] == '\'';
        result += afterText || beforeText ? "||" : "+";
        at = end;
      }
      afterText = c == '\'';
    }
    result.append(statement, at, end - at);
    at = end;
  }
  return result;
}

}  // namespace quorvane::sqltext
