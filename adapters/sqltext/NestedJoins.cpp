#include "adapters/sqltext/NestedJoins.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "adapters/sqltext/Tokens.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::sqltext {
namespace {

/// A table of a chain, how it is joined to what stands before it, and on what.
struct Joined {
  bool left = false;  ///< LEFT JOIN; INNER JOIN otherwise. Of no use in the first of a chain
  std::string table;
  std::string condition;
};

using Chain = std::vector<Joined>;

/// Reads the joins behind a FROM. Gives up, with none, on what it doesn't know.
class JoinReader {
 public:
  JoinReader(std::string_view text, std::size_t at) : text_(text), at_(at) { SkipBlanks(); }

  std::optional<Chain> Read() {
    auto chain = Operand();
    while (chain) {
      const auto join = JoinWord();
      if (!join) return chain;
      const auto right = Operand();
      if (!right || !Word("ON")) return std::nullopt;
      auto condition = Condition(right->front().table, *chain);
      if (!condition || !Append(*chain, *right, *join, *condition)) return std::nullopt;
    }
    return std::nullopt;
  }

  [[nodiscard]] std::size_t At() const noexcept { return at_; }

 private:
  enum class Join { Left, Inner };

  std::optional<Chain> Operand() {
    if (at_ < text_.size() && text_[at_] == '(') {
      // Nobody writes as many, and each costs stack.
      if (++depth_ > kDeepest) return std::nullopt;
      ++at_;
      SkipBlanks();
      auto chain = Read();
      --depth_;
      if (!chain || at_ >= text_.size() || text_[at_] != ')') return std::nullopt;
      ++at_;
      SkipBlanks();
      return chain;
    }
    const auto name = Name();
    if (name.empty()) return std::nullopt;
    return Chain{{false, std::string(name), {}}};
  }

  /// One equality of two columns, one of which is `table`'s, the other of one of those before it.
  std::optional<std::string> Condition(std::string_view table, const Chain& before) {
    const auto start = at_;
    const auto one = Name();
    if (!Character('.') || Name().empty() || !Character('=')) return std::nullopt;
    const auto other = Name();
    if (!Character('.') || Name().empty()) return std::nullopt;
    if (!(EqualNoCase(one, table) && Holds(before, other)) &&
        !(EqualNoCase(other, table) && Holds(before, one)))
      return std::nullopt;
    auto condition = text_.substr(start, at_ - start);
    return std::string(condition.substr(0, condition.find_last_not_of(" \t\r\n") + 1));
  }

  static bool Holds(const Chain& chain, std::string_view table) {
    return std::any_of(chain.begin(), chain.end(),
                       [&](const Joined& one) { return EqualNoCase(one.table, table); });
  }

  static bool Append(Chain& chain, const Chain& right, Join join, const std::string& condition) {
    const auto bracketOfLeftJoins =
        std::all_of(right.begin() + 1, right.end(), [](const Joined& one) { return one.left; });
    if (join == Join::Left && !bracketOfLeftJoins) return false;
    chain.push_back({join == Join::Left, right.front().table, condition});
    chain.insert(chain.end(), right.begin() + 1, right.end());
    return true;
  }

  std::optional<Join> JoinWord() {
    const auto start = at_;
    const auto left = Word("LEFT");
    if (!left) Word("INNER");
    if (Word("JOIN")) return left ? Join::Left : Join::Inner;
    at_ = start;
    return std::nullopt;
  }

  std::string_view Name() {
    const auto start = at_;
    if (at_ >= text_.size() || KindOf(text_[at_]) != CharKind::Word) return {};
    at_ = EndOfWord(text_, at_);
    const auto name = text_.substr(start, at_ - start);
    SkipBlanks();
    return name;
  }

  bool Word(std::string_view word) {
    const auto start = at_;
    if (EqualNoCase(Name(), word)) return true;
    at_ = start;
    return false;
  }

  bool Character(char character) {
    if (at_ >= text_.size() || text_[at_] != character) return false;
    ++at_;
    SkipBlanks();
    return true;
  }

  void SkipBlanks() {
    const auto next = text_.find_first_not_of(" \t\r\n", at_);
    at_ = next == std::string_view::npos ? text_.size() : next;
  }

  static constexpr int kDeepest = 50;

  std::string_view text_;
  std::size_t at_;
  int depth_ = 0;
};

/// Behind the joins a statement may go on with these, or end.
bool EndsTheJoins(std::string_view text, std::size_t at) {
  if (at >= text.size() || text[at] == ')') return true;
  const auto word = text.substr(at, EndOfWord(text, at) - at);
  return EqualNoCase(word, "WHERE") || EqualNoCase(word, "UNION") || EqualNoCase(word, "ORDER") ||
         EqualNoCase(word, "GROUP");
}

std::string Written(const Chain& chain) {
  auto text = chain.front().table;
  for (auto joined = chain.begin() + 1; joined != chain.end(); ++joined)
    text += (joined->left ? " LEFT JOIN " : " INNER JOIN ") + joined->table + " ON " +
            joined->condition;
  return text + " ";
}

}  // namespace

std::string FlattenJoins(std::string_view statement) {
  constexpr std::string_view kBracket = "LEFT JOIN (";
  if (statement.find(kBracket) == std::string_view::npos) return std::string(statement);
  std::string result;
  for (std::size_t at = 0; at < statement.size();) {
    const auto kind = KindOf(statement[at]);
    auto end = std::max(at + 1, EndOfBlanks(statement, at));
    if (kind == CharKind::Quote) end = EndOfQuoted(statement, at);
    if (kind == CharKind::Word) end = EndOfWord(statement, at);
    const auto token = statement.substr(at, end - at);
    result += token;
    at = end;
    if (!EqualNoCase(token, "FROM")) continue;
    JoinReader reader(statement, at);
    const auto chain = reader.Read();
    if (!chain || chain->size() < 3 || !EndsTheJoins(statement, reader.At())) continue;
    result += " " + Written(*chain);
    at = reader.At();
  }
  return result;
}

}  // namespace quorvane::sqltext
