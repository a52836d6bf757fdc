// Every statement that the module can issue, on the sample school: what the adapter makes of it is
// held against the engine with the text prepared as it stands.

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqltext/Concatenation.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/SchoolFile.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/text/AsciiCase.h"
#include "tests/sqlite/PlainDatabase.h"
#include "tests/sqlite/RunRows.h"
#include "tests/support/Opened.h"
#include "tests/support/StatementList.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

/// Names tables or columns that no school has, or values for columns that aren't there.
bool IsToFail(const std::string& line) {
  const auto has = [&line](const char* part) { return line.find(part) != std::string::npos; };
  if (has("AlumnoPte_MateriaDetalles") || has("INSERT INTO EvaluacionPte  VALUES")) return true;
  return has("CodAlumno_MateriaDetalles={n}") && (has("EvaluacionActaPte") || has("EvaluacionPte"));
}

/// The name that a form reads a column of the SELECT list by.
std::string NameOf(std::string_view column) {
  const auto alias = column.rfind(" AS ");
  if (alias != std::string_view::npos) return std::string(column.substr(alias + 4));
  const auto dot = column.rfind('.');
  return std::string(dot == std::string_view::npos ? column : column.substr(dot + 1));
}

FieldNames ExpectedNames(const std::string& select) {
  const std::string_view text(select);
  const auto distinct = text.find("DISTINCT ");
  const auto begin =
      distinct != std::string_view::npos && distinct < 10 ? distinct + 9 : text.find("SELECT") + 7;
  FieldNames names;
  std::string column;
  auto depth = 0;
  for (auto at = begin; at < text.size(); ++at) {
    const auto c = text[at];
    if (c == '(') ++depth;
    if (c == ')') --depth;
    const auto ended = depth == 0 && (EqualNoCase(text.substr(at, 6), " FROM ") ||
                                      (c == ',' && text[at - 1] != '\''));
    if (!ended) {
      if (!column.empty() || c != ' ') column += c;
      continue;
    }
    while (column.back() == ' ') column.pop_back();
    names.push_back(NameOf(column));
    column.clear();
    if (c != ',') break;
  }
  return names;
}

class CatalogueTest : public testing::Test {
 protected:
  static std::string Made(std::string path) {
    MakeSchoolFile(path, [](Connection& school) { DemoSchool(school).Build(); });
    return path;
  }

  TempFolder folder_;
  Opened<sqlite::SqliteConnection> school_{Made(folder_ / "adapter.sqlite"), ""};
};

TEST_F(CatalogueTest, LiftedStatementsDoWhatTheirTextsDo) {
  PlainDatabase engine(Made(folder_ / "engine.sqlite"));
  const auto lines = Catalogue(QUORVANE_STATEMENTS);
  ASSERT_GT(lines.size(), 150U);
  // Reading first, while all rows are there; then what writes, with what it reads in between.
  for (const auto reading : {true, false})
    for (const auto number : {1, 2, 4, 5, 7, 11, 30})
      for (const auto& line : lines) {
        const auto statement = FillIn(line, number);
        if (reading && !IsSelect(statement)) continue;
        auto ours = RunRows(school_, statement);
        auto theirs = engine.Run(sqltext::RewriteConcatenation(statement));
        std::sort(ours.begin(), ours.end());
        std::sort(theirs.begin(), theirs.end());
        ASSERT_EQ(ours, theirs) << statement;
      }
  for (const auto& table : SchoolTables())
    EXPECT_EQ(RunRows(school_, "SELECT * FROM " + table.name),
              engine.Run("SELECT * FROM " + table.name))
        << table.name;
}

TEST_F(CatalogueTest, EveryStatementRunsButThoseThatNameWhatIsNot) {
  for (const auto& line : Catalogue(QUORVANE_STATEMENTS)) {
    // Numbers that no key has, so that no insert meets a row.
    const auto rows = RunRows(school_, FillIn(line, 900000 + static_cast<int>(line.size())));
    const auto failed = !rows.empty() && rows.front().starts_with("error ");
    const auto doubled = failed && rows.front().find("UNIQUE") != std::string::npos;
    EXPECT_EQ(failed && !doubled, IsToFail(line)) << line << '\n' << testing::PrintToString(rows);
  }
}

TEST_F(CatalogueTest, FieldsBearTheNamesThatTheFormsRead) {
  auto checked = 0;
  for (const auto& line : Catalogue(QUORVANE_STATEMENTS)) {
    const auto statement = FillIn(line, 5);
    if (!IsSelect(statement) || IsToFail(line)) continue;
    const auto expected = ExpectedNames(statement);
    const auto names = school_.Execute(statement).Names();
    if (expected.front() == "*") {
      for (const auto& name : names) EXPECT_EQ(name.find('.'), std::string::npos) << name;
      continue;
    }
    ASSERT_EQ(names.size(), expected.size()) << statement;
    for (std::size_t i = 0; i < names.size(); ++i)
      EXPECT_TRUE(EqualNoCase(names[i], expected[i]))
          << names[i] << " is not " << expected[i] << " in " << statement;
    ++checked;
  }
  EXPECT_GT(checked, 90);
}

TEST_F(CatalogueTest, TheSampleSchoolGivesRowsToTheListsOfTheForms) {
  // What the register of 3º ESO A and the grids of its forms are made of.
  for (const std::string select :
       {"SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE Abreviatura=-1 AND CodTipoMateria IN "
        "(SELECT CodTipoMateria FROM Materia WHERE CodTipoEnsenanza=3) ORDER BY Orden",
        "SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=3 AND "
        "CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE "
        "CodTipoEnsenanza=4)",
        "SELECT IdNumEvaluacion FROM NumEvaluacion WHERE Final=-1 AND Orden=1",
        "SELECT Recuperaciones FROM SistemaCalificacion WHERE CodTipoEnsenanza=3"})
    EXPECT_FALSE(RunRows(school_, select).empty()) << select;
}

}  // namespace
}  // namespace quorvane::test
