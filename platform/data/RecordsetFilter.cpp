#include "platform/data/RecordsetFilter.h"

#include <string_view>

#include "platform/RuntimeError.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

/// Cuts the text of a filter into words, comparisons, numbers and quoted texts.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) { SkipBlanks(); }

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  std::string Name() {
    if (rest_.front() == '[') {
      const auto end = rest_.find(']');
      if (end == std::string_view::npos) Fail();
      std::string name(rest_.substr(1, end - 1));
      Drop(end + 1);
      return name;
    }
    return Take(rest_.find_first_of(" \t=<>"));
  }

  std::string Comparison() {
    const auto length = rest_.find_first_not_of("=<>");
    auto comparison = Take(length);
    for (const auto* known : {"=", "<>", "<", "<=", ">", ">="})
      if (comparison == known) return comparison;
    Fail();
  }

  Value Operand() {
    if (AtEnd()) Fail();
    if (rest_.front() == '\'') return Value(Quoted());
    double number = 0;
    if (!ParseNumber(Take(rest_.find_first_of(" \t")), number)) Fail();
    return Value(number);
  }

  [[noreturn]] static void Fail() { throw RuntimeError(ErrorNumber::InvalidArgument); }

 private:
  std::string Quoted() {
    std::string text;
    std::size_t at = 1;
    for (;; ++at) {
      if (at >= rest_.size()) Fail();
      if (rest_[at] != '\'') {
        text += rest_[at];
      } else if (at + 1 < rest_.size() && rest_[at + 1] == '\'') {
        text += rest_[at++];
      } else {
        break;
      }
    }
    Drop(at + 1);
    return text;
  }

  std::string Take(std::size_t length) {
    const auto taken = rest_.substr(0, length);
    if (taken.empty()) Fail();
    Drop(taken.size());
    return std::string(taken);
  }

  void Drop(std::size_t length) {
    rest_.remove_prefix(length);
    SkipBlanks();
  }

  void SkipBlanks() {
    const auto start = rest_.find_first_not_of(" \t");
    rest_.remove_prefix(start == std::string_view::npos ? rest_.size() : start);
  }

  std::string_view rest_;
};

std::size_t ColumnNamed(const std::string& name, const std::vector<std::string>& names) {
  for (std::size_t i = 0; i < names.size(); ++i)
    if (EqualNoCase(names[i], name)) return i;
  throw RuntimeError(ErrorNumber::UnknownField);
}

}  // namespace

RecordsetFilter::RecordsetFilter(const std::string& conditions,
                                 const std::vector<std::string>& names) {
  Scanner scanner(conditions);
  while (!scanner.AtEnd()) {
    if (!conditions_.empty() && !EqualNoCase(scanner.Name(), "and")) Scanner::Fail();
    if (scanner.AtEnd()) Scanner::Fail();
    Condition condition;
    condition.column = ColumnNamed(scanner.Name(), names);
    condition.comparison = scanner.Comparison();
    condition.value = scanner.Operand();
    conditions_.push_back(std::move(condition));
  }
}

bool RecordsetFilter::Holds(const Condition& condition, const Value& value) {
  if (value.IsNull()) return false;
  int order = 0;
  if (condition.value.IsText()) {
    order = value.Text().compare(condition.value.Text());
  } else {
    const auto left = value.Number();
    const auto right = condition.value.Number();
    order = left < right ? -1 : (left > right ? 1 : 0);
  }
  const auto& comparison = condition.comparison;
  if (comparison == "=") return order == 0;
  if (comparison == "<>") return order != 0;
  if (comparison == "<") return order < 0;
  if (comparison == "<=") return order <= 0;
  if (comparison == ">") return order > 0;
  return order >= 0;
}

bool RecordsetFilter::Passes(const Value* row) const {
  for (const auto& condition : conditions_)
    if (!Holds(condition, row[condition.column])) return false;
  return true;
}

}  // namespace quorvane
