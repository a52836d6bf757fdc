#include "frame/schema/SchemaDescription.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

using Words = std::vector<std::string>;

Words WordsOf(std::string line) {
  std::replace(line.begin(), line.end(), ',', ' ');
  std::istringstream words(line);
  return {std::istream_iterator<std::string>(words), {}};
}

/// The words from the given one on, with a blank between each two.
std::string From(const Words& words, std::size_t first) {
  std::string text;
  for (auto i = first; i < words.size(); ++i) text += (text.empty() ? "" : " ") + words[i];
  return text;
}

template <class Named>
bool Has(const std::vector<Named>& all, const std::string& name) {
  return std::any_of(all.begin(), all.end(),
                     [&](const Named& one) { return EqualNoCase(one.name, name); });
}

bool HasKey(const SchemaTable& table) {
  return std::any_of(table.columns.begin(), table.columns.end(),
                     [](const SchemaColumn& column) { return column.kind == SchemaKind::Key; });
}

class Reader {
 public:
  SchemaDescription Read(std::string_view text) {
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
      ++line_;
      if (line.starts_with("--"))
        comment_.push_back(line);
      else if (!line.starts_with("#"))
        Take(WordsOf(line));
    }
    Take({});
    CloseTable();
    return std::move(school_);
  }

 private:
  void Take(const Words& words) {
    if (words.empty()) return EndComment();
    if (words[0] == "table") return OpenTable(words);
    if (!comment_.empty()) Refuse("a comment stands above a table");
    if (school_.tables.empty()) Refuse("'" + words[0] + "' stands in no table");
    if (words[0] == "index") return AddIndex(words);
    AddColumn(words);
  }

  void EndComment() {
    if (comment_.empty()) return;
    if (!school_.tables.empty() || !school_.heading.empty())
      Refuse("a comment stands above a table");
    school_.heading = std::exchange(comment_, {});
  }

  void OpenTable(const Words& words) {
    CloseTable();
    if (words.size() < 2) Refuse("a table has a name");
    if (Has(school_.tables, words[1])) Refuse("there is a table " + words[1] + " already");
    const auto mark = From(words, 2);
    if (!mark.empty() && mark != kByPosition) Refuse("a table can't be '" + mark + "'");
    SchemaTable table;
    table.name = words[1];
    table.comment = std::exchange(comment_, {});
    table.byPosition = !mark.empty();
    school_.tables.push_back(std::move(table));
  }

  void CloseTable() const {
    if (!school_.tables.empty() && school_.tables.back().columns.empty())
      Refuse("the table " + school_.tables.back().name + " above has no columns");
  }

  void AddColumn(const Words& words) {
    auto& table = school_.tables.back();
    if (words.size() < 2) Refuse("the column " + words[0] + " has no kind");
    if (Has(table.columns, words[0])) Refuse(table.name + " has a column " + words[0] + " already");
    const SchemaColumn column{words[0], Among<SchemaKind>(kSchemaKindWords, words[1], "kind"),
                              Among<SchemaMark>(kSchemaMarkWords, From(words, 2), "mark")};
    if (column.kind == SchemaKind::Key && HasKey(table)) Refuse(table.name + " has a key already");
    table.columns.push_back(column);
  }

  void AddIndex(const Words& words) {
    auto& table = school_.tables.back();
    if (words.size() < 2) Refuse("an index has columns");
    for (auto i = std::size_t{1}; i < words.size(); ++i)
      if (!Has(table.columns, words[i])) Refuse(table.name + " has no column " + words[i]);
    table.indexes.emplace_back(words.begin() + 1, words.end());
  }

  template <class Enum, std::size_t N>
  Enum Among(const std::array<std::string_view, N>& all, const std::string& word,
             const std::string& what) const {
    const auto found = std::find(all.begin(), all.end(), word);
    if (found == all.end()) Refuse("there is no " + what + " '" + word + "'");
    return static_cast<Enum>(found - all.begin());
  }

  [[noreturn]] void Refuse(const std::string& why) const {
    throw std::invalid_argument("line " + std::to_string(line_) + ": " + why);
  }

  SchemaDescription school_;
  Words comment_;
  int line_ = 0;
};

}  // namespace

SchemaDescription ReadSchema(std::string_view text) { return Reader().Read(text); }

}  // namespace quorvane
