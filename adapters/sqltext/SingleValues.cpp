#include "adapters/sqltext/SingleValues.h"

#include <cstddef>
#include <vector>

#include "adapters/sqltext/Tokens.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::sqltext {
namespace {

bool Compares(std::string_view token) { return token == "=" || token == "<" || token == ">"; }

}  // namespace

std::string TakeFirstOfComparedSelects(std::string_view statement) {
  std::string result;
  std::vector<bool> compared;  // for each bracket that is open: whether it holds such a SELECT
  std::string_view before;     // the last token, and the one before it
  std::string_view last;
  for (std::size_t at = 0; at < statement.size();) {
    const auto blanks = EndOfBlanks(statement, at);
    result += statement.substr(at, blanks - at);
    if ((at = blanks) == statement.size()) break;
    const auto end = EndOfToken(statement, at);
    const auto token = statement.substr(at, end - at);
    if (token == ")" && !compared.empty()) {
      if (compared.back()) result += " LIMIT 1";
      compared.pop_back();
    }
    if (token == "(") compared.push_back(false);
    if (last == "(" && Compares(before) && EqualNoCase(token, "SELECT")) compared.back() = true;
    if (EqualNoCase(token, "LIMIT") && !compared.empty()) compared.back() = false;
    result += token;
    before = last;
    last = token;
    at = end;
  }
  return result;
}

}  // namespace quorvane::sqltext
