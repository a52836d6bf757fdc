// The two roads to one engine, side by side on the sample school.

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "adapters/odbc/OdbcConnection.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/SchoolFile.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/text/AsciiCase.h"
#include "tests/sqlite/RunRows.h"
#include "tests/support/Opened.h"
#include "tests/support/StatementList.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

/// The driver's error for what the engine says.
std::vector<std::string> WithoutState(std::vector<std::string> rows) {
  constexpr std::string_view kState = "error [HY000] ";
  if (rows.size() == 1 && rows.front().starts_with(kState)) {
    const auto& text = rows.front();
    rows = {"error " + text.substr(kState.size(), text.rfind(" (") - kState.size())};
  }
  return rows;
}

class SameRowsTest : public testing::Test {
 protected:
  static std::string Made(std::string path) {
    MakeSchoolFile(path, [](Connection& school) { DemoSchool(school).Build(); });
    return path;
  }

  TempFolder folder_;
  Opened<sqlite::SqliteConnection> native{Made(folder_ / "fichero.sqlite"), ""};
  Opened<odbc::OdbcConnection> driver{OdbcString(Made(folder_ / "controlador.sqlite")), ""};
};

TEST_F(SameRowsTest, OfEveryStatementThatTheModuleCanIssue) {
  const auto lines = Catalogue(QUORVANE_STATEMENTS);
  ASSERT_GT(lines.size(), 150U);
  auto compared = 0;
  // Reading first, while all rows are there; then what writes, with what it reads in between.
  for (const auto reading : {true, false})
    for (const auto number : {1, 2, 4, 5, 7, 11, 30})
      for (const auto& line : lines) {
        const auto statement = FillIn(line, number);
        if (reading && !IsSelect(statement)) continue;
        const auto expected = RunRows(native, statement);
        ASSERT_EQ(WithoutState(RunRows(driver, statement)), expected) << statement;
        compared += static_cast<int>(expected.size());
      }
  EXPECT_GT(compared, 1000);
}

TEST_F(SameRowsTest, OfEveryTable) {
  for (const auto& table : SchoolTables())
    EXPECT_EQ(RunRows(driver, "SELECT * FROM " + table.name),
              RunRows(native, "SELECT * FROM " + table.name))
        << table.name;
}

TEST_F(SameRowsTest, UnderTheSameNamesAndOfTheSameKind) {
  auto compared = 0;
  for (const auto& line : Catalogue(QUORVANE_STATEMENTS)) {
    const auto statement = FillIn(line, 5);
    if (!IsSelect(statement) || RunRows(native, statement) != RunRows(driver, statement)) continue;
    const auto expected = native.Execute(statement);
    const auto rows = driver.Execute(statement);
    ASSERT_EQ(rows.Names().size(), expected.Names().size()) << statement;
    for (std::size_t i = 0; i < rows.Names().size(); ++i) {
      // The driver takes what stands before a point in an expression for a table.
      if (expected.Names()[i].find('(') == std::string::npos) {
        EXPECT_TRUE(EqualNoCase(rows.Names()[i], expected.Names()[i]))
            << rows.Names()[i] << " for " << expected.Names()[i] << " of " << statement;
      }
      if (rows.Eof()) continue;
      EXPECT_EQ(rows.Fields(i).IsText(), expected.Fields(i).IsText())
          << rows.Names()[i] << " of " << statement;
      ++compared;
    }
  }
  EXPECT_GT(compared, 100);
}

}  // namespace
}  // namespace quorvane::test
