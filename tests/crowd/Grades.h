#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::test {

/// An UPDATE of the module: what it gives to which rows of which table. Names in lower case.
struct GradeUpdate {
  std::string table;
  std::map<std::string, std::string> values;
  std::string condition;

  /// Gives grades, and doesn't only move the mark of the last evaluation.
  [[nodiscard]] bool GivesGrades() const { return values.contains("codnota"); }
  /// Counts the rows that it reaches and that have other grades than it gives.
  [[nodiscard]] std::string DifferingRows() const;
};

/// Nothing when the statement doesn't update grades.
std::optional<GradeUpdate> ParseGradeUpdate(std::string_view statement);

}  // namespace quorvane::test
