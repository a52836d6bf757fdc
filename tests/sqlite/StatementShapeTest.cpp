#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

#include "adapters/sqlite/StatementLifter.h"
#include "adapters/sqlite/StatementShape.h"

namespace quorvane::sqlite {
namespace {

using Values = std::vector<std::int64_t>;

StatementShape ShapeOf(const std::string& statement) {
  StatementLifter lifter;
  EXPECT_TRUE(lifter.Lift(statement)) << statement;
  return lifter.Shape();
}

TEST(StatementShapeTest, GivesTheValuesOfAStatementThatDiffersInItsNumbers) {
  const auto shape = ShapeOf("SELECT Nombre FROM Alumno WHERE IDAlumno=1 AND CodSeccion IN (2,30)");
  Values values;
  ASSERT_TRUE(shape.Fits("SELECT Nombre FROM Alumno WHERE IDAlumno=12345 AND CodSeccion IN (0,007)",
                         values));
  EXPECT_EQ(values, (Values{12345, 0, 7}));
}

TEST(StatementShapeTest, RefusesEveryOtherText) {
  const auto shape = ShapeOf("SELECT a FROM t WHERE b=1 AND c=2 ");
  for (const auto* const other :
       {"", "SELECT a FROM t", "SELECT a FROM t WHERE b=", "SELECT a FROM t WHERE b=x AND c=2 ",
        "SELECT a FROM t WHERE b=1 AND c=2", "SELECT a FROM t WHERE b=1 AND c=2  ",
        "SELECT a FROM t WHERE b=1.5 AND c=2 ", "SELECT a FROM t WHERE b=1e3 AND c=2 ",
        "SELECT a FROM t WHERE b=1 AND c=2x ", "SELECT a FROM u WHERE b=1 AND c=2 ",
        "SELECT a FROM t WHERE b=-1 AND c=2 ",
        "SELECT a FROM t WHERE b=1234567890123456789 AND c=2 "}) {
    Values values;
    EXPECT_FALSE(shape.Fits(other, values)) << other;
  }
}

TEST(StatementShapeTest, TakesAQuestionMarkInATextForWhatItIs) {
  const auto shape = ShapeOf("SELECT a FROM t WHERE b='?' AND c=2");
  Values values;
  EXPECT_TRUE(shape.Fits("SELECT a FROM t WHERE b='?' AND c=3", values));
  EXPECT_EQ(values, Values{3});
  EXPECT_FALSE(shape.Fits("SELECT a FROM t WHERE b='4' AND c=3", values));
}

TEST(StatementShapeTest, FitsWhateverLiftsToItAndNothingElse) {
  std::ifstream file(QUORVANE_STATEMENTS);
  std::vector<std::string> statements;
  const std::regex placeholder(R"(\{[a-z]\})");
  for (std::string line; std::getline(file, line);) {
    line = std::regex_replace(line, placeholder, std::to_string(statements.size()));
    if (StatementLifter lifter; lifter.Lift(line)) statements.push_back(line);
  }
  ASSERT_GT(statements.size(), 50U);
  for (const auto& one : statements) {
    const auto shape = ShapeOf(one);
    for (const auto& other : statements) {
      StatementLifter lifter;
      lifter.Lift(other);
      Values values;
      const auto fits = shape.Fits(other, values);
      EXPECT_EQ(fits, lifter.Text() == shape.Text()) << one << "\n" << other;
      if (fits) {
        EXPECT_EQ(values, lifter.Values());
      }
    }
  }
}

}  // namespace
}  // namespace quorvane::sqlite
