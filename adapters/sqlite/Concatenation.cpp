#include "adapters/sqlite/Concatenation.h"

#include "adapters/sqlite/Tokens.h"

namespace quorvane::sqlite {

std::string RewriteConcatenation(std::string_view statement) {
  std::string result;
  result.reserve(statement.size() + 8);
  auto afterText = false;  // the last token was a text literal
  for (std::size_t at = 0; at < statement.size();) {
    const auto c = statement[at];
    if (KindOf(c) == CharKind::Quote) {
      const auto end = EndOfQuoted(statement, at);
      result.append(statement, at, end - at);
      afterText = c == '\'';
      at = end;
      continue;
    }
    if (c == '+') {
      const auto next = statement.find_first_not_of(" \t\r\n", at + 1);
      const auto beforeText = next != std::string_view::npos && statement[next] == '\'';
      result += afterText || beforeText ? "||" : "+";
    } else {
      result += c;
    }
    if (c != ' ' && c != '\t' && c != '\r' && c != '\n') afterText = false;
    ++at;
  }
  return result;
}

}  // namespace quorvane::sqlite
