#include "apps/escuela/TableClauses.h"

#include <algorithm>
#include <cstddef>

#include "adapters/sqltext/Tokens.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

constexpr std::string_view kCollate = "COLLATE";

/// Walks through a statement, a word, a name, a text, a number or a sign at a time.
class Walk {
 public:
  explicit Walk(std::string_view text) : text_(text) {}

  /// Empty at the end.
  std::string_view Next() {
    at_ = sqltext::EndOfBlanks(text_, at_);
    const auto from = at_;
    if (at_ == text_.size()) return {};
    at_ = sqltext::EndOfToken(text_, at_);
    return text_.substr(from, at_ - from);
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

bool IsKnownOrder(std::string_view name) {
  if (name.size() > 1 && sqltext::KindOf(name.front()) == sqltext::CharKind::Quote)
    name = name.substr(1, name.size() - 2);
  return EqualNoCase(name, "BINARY") || EqualNoCase(name, "NOCASE") || EqualNoCase(name, "RTRIM");
}

/// Whether what stands in the bracket behind which `walk` goes on is computed: a number or a text
/// isn't.
bool IsComputed(Walk walk) {
  auto word = walk.Next();
  while (!word.empty() && word != ")" && word != "(" &&
         sqltext::KindOf(word.front()) != sqltext::CharKind::Word)
    word = walk.Next();
  return word != ")";
}

}  // namespace

std::vector<std::string> TableClauses(std::string_view createTable) {
  std::vector<std::string> found;
  const auto add = [&](std::string_view clause) {
    if (std::find(found.begin(), found.end(), clause) == found.end()) found.emplace_back(clause);
  };
  Walk walk(createTable);
  std::string_view before;
  auto depth = 0;
  for (auto word = walk.Next(); !word.empty(); word = walk.Next()) {
    if (word == "(") {
      if (EqualNoCase(before, "DEFAULT") && IsComputed(walk)) add("DEFAULT");
      ++depth;
    }
    if (word == ")") --depth;
    if (EqualNoCase(word, "CHECK")) add("CHECK");
    if (EqualNoCase(word, "CONFLICT") && EqualNoCase(before, "ON")) add("ON CONFLICT");
    if (EqualNoCase(word, "STRICT") && depth == 0) add("STRICT");
    if (EqualNoCase(before, kCollate) && !IsKnownOrder(word))
      add(std::string(kCollate) + " " + std::string(word));
    before = word;
  }
  return found;
}

bool HarmsReaders(std::string_view clause) { return clause.starts_with(kCollate); }

}  // namespace quorvane
