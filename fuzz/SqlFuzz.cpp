#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "adapters/sqlite/SqliteConnection.h"
#include "fuzz/Choices.h"
#include "fuzz/Fail.h"
#include "fuzz/PlainEngine.h"
#include "fuzz/RandomStatement.h"
#include "tests/support/SmallSchool.h"

// The adapter rewrites and lifts a statement, and keeps it prepared; the rows, the names of the
// columns and the errors are those of the text that the engine would have been given.
namespace quorvane::fuzz {
namespace {

class School : public test::SmallSchool {
 public:
  School() {
    Registra(321, 1);
    const auto first = Pendiente(1, 3111, 1);
    const auto second = Pendiente(2, 3112, 1);
    Evalua(first, 1, 105);
    Evalua(second, 1);
    Evalua(second, 2, 103);
  }
};

struct Engines {
  School school;
  sqlite::SqliteConnection adapter{school.Path(), ""};
  PlainEngine plain{school.Path()};

  Engines() { adapter.Open(); }
};

Engines& TheEngines() {
  static Engines engines;
  return engines;
}

void Compare(const std::string& statement, const Outcome& expected, const Outcome& actual) {
  if (expected == actual) return;
  Fail("statement: " + statement + "\nplain: " + expected.Text() + "adapter: " + actual.Text());
}

void Reads(const Statement& statement) {
  auto& engines = TheEngines();
  const auto expected = engines.plain.Run(statement.engine);
  // Prepared, then found, then known from what came before it.
  for (int i = 0; i < 3; ++i)
    Compare(statement.module, expected, RunThrough(engines.adapter, statement.module));
}

/// Both engines write, look at the table and take it back.
void Writes(const Statement& statement) {
  auto& engines = TheEngines();
  const std::string rows =
      "SELECT * FROM Alumno,Seccion,(SELECT COUNT(*) FROM EvaluacionPte),(SELECT SUM(CodAlumno) "
      "FROM AlumnoPte_MatDet)";
  engines.plain.Run("BEGIN");
  const auto expected = engines.plain.Run(statement.engine);
  const auto expectedRows = engines.plain.Run(rows);
  engines.plain.Run("ROLLBACK");
  RunThrough(engines.adapter, "BEGIN");
  const auto actual = RunThrough(engines.adapter, statement.module);
  const auto actualRows = RunThrough(engines.adapter, rows);
  RunThrough(engines.adapter, "ROLLBACK");
  Compare(statement.module, expected, actual);
  Compare(statement.module, expectedRows, actualRows);
}

bool Has(std::string_view text, std::string_view word) {
  return std::search(text.begin(), text.end(), word.begin(), word.end(), [](char one, char other) {
           return std::tolower(static_cast<unsigned char>(one)) == other;
         }) != text.end();
}

/// Any text at all. Where the adapter means another thing than the engine on purpose (it joins
/// texts with `+` and takes one statement) or the engine chooses the rows, it is only to survive.
void Text(const std::string& text) {
  auto& engines = TheEngines();
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos || !Has(text.substr(first, 6), "select")) return;
  // What these give is never the same twice, or takes the rest of the day.
  for (const auto* word : {"random", "now", "blob", "printf", "format", "load", "recursive"})
    if (Has(text, word)) return;
  const auto actual = RunThrough(engines.adapter, text);
  for (const auto* word : {"+", ";", "limit", "group_concat"})
    if (Has(text, word)) return;
  if (text.find('\0') != std::string::npos) return;
  Compare(text, engines.plain.Run(text), actual);
}

}  // namespace
}  // namespace quorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvane::fuzz;
  if (size == 0) return 0;
  // A corpus entry that begins with a letter is a text of SQL; others are choices.
  if (std::isalpha(data[0]) != 0 && data[0] < 0x80) {
    Text(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
  }
  Choices choices({data + 1, size - 1});
  const auto statement = RandomStatement(choices);
  if (statement.writes)
    Writes(statement);
  else
    Reads(statement);
  return 0;
}
