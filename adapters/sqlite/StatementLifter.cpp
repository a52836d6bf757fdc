#include "adapters/sqlite/StatementLifter.h"

#include "adapters/sqltext/Tokens.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::sqlite {
namespace {

// A list longer than this is seldom met again at the same length.
constexpr std::size_t kMostValues = 64;
constexpr std::size_t kLongestStatement = 16384;

bool IsLiftable(std::string_view statement) {
  const auto first = statement.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return false;
  const auto word = statement.substr(first, sqltext::EndOfWord(statement, first) - first);
  return EqualNoCase(word, "SELECT") || EqualNoCase(word, "INSERT") ||
         EqualNoCase(word, "UPDATE") || EqualNoCase(word, "DELETE");
}

}  // namespace

bool StatementLifter::Word(std::string_view word) {
  if (word.size() == 6 && EqualNoCase(word, "SELECT")) {
    // A SELECT among the columns of another: where those go on is not told by a word.
    if (inColumns_) return false;
    inColumns_ = true;
  } else if (word.size() == 4 && EqualNoCase(word, "FROM")) {
    inColumns_ = false;
  } else if (word.size() == 2 && EqualNoCase(word, "BY")) {
    ended_ = true;
  } else if (word.size() == 2 && EqualNoCase(word, "AS") && !inColumns_) {
    // A type or a table's other name may follow, with numbers that are no values.
    return false;
  }
  return true;
}

bool StatementLifter::Number(std::string_view statement, std::size_t& at) {
  const auto begin = at;
  std::int64_t value = 0;
  const auto whole = ReadNumber(statement, at, value);
  const auto fraction = at < statement.size() && statement[at] == '.';
  const auto goesOn = fraction || (at < statement.size() && sqltext::IsWordPart(statement[at]));
  if (goesOn || !whole || inColumns_ || ended_) {
    at = sqltext::EndOfNumber(statement, begin);
    text_.append(statement, begin, at - begin);
    return true;
  }
  if (values_.size() == kMostValues) return false;
  values_.push_back(value);
  gaps_.push_back(text_.size());
  text_ += '?';
  return true;
}

bool StatementLifter::Lift(std::string_view statement) {
  text_.clear();
  values_.clear();
  gaps_.clear();
  inColumns_ = ended_ = false;
  if (statement.size() > kLongestStatement || !IsLiftable(statement)) return false;
  std::size_t copied = 0;  // what stands before this has been put into the text
  std::size_t at = 0;
  while (at < statement.size()) {
    switch (sqltext::KindOf(statement[at])) {
      case sqltext::CharKind::Word: {
        const auto end = sqltext::EndOfWord(statement, at);
        if (!Word(statement.substr(at, end - at))) return false;
        at = end;
        break;
      }
      case sqltext::CharKind::Quote:
        at = sqltext::EndOfQuoted(statement, at);
        break;
      case sqltext::CharKind::Digit:
        text_.append(statement, copied, at - copied);
        if (!Number(statement, at)) return false;
        copied = at;
        break;
      case sqltext::CharKind::Dot:  // a fraction without a whole part
        at = sqltext::EndOfNumber(statement, at);
        break;
      case sqltext::CharKind::Dash:
      case sqltext::CharKind::Slash: {
        const auto next = at + 1 < statement.size() ? statement[at + 1] : '\0';
        if ((statement[at] == '-' && next == '-') || next == '*') return false;
        ++at;
        break;
      }
      case sqltext::CharKind::Parameter:
      case sqltext::CharKind::Semicolon:
        return false;
      case sqltext::CharKind::Other:
        ++at;
        break;
    }
  }
  text_.append(statement, copied);
  return true;
}

}  // namespace quorvane::sqlite
