#pragma once

#include <cctype>
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

  /// Nothing when the statement doesn't update grades.
  static std::optional<GradeUpdate> Parse(std::string_view statement) {
    constexpr std::string_view kUpdate = "UPDATE ";
    constexpr std::string_view kSet = " SET ";
    constexpr std::string_view kWhere = " WHERE ";
    if (!statement.starts_with("UPDATE Evaluacion")) return std::nullopt;
    const auto set = statement.find(kSet);
    const auto where = statement.find(kWhere);
    if (set == std::string_view::npos || where == std::string_view::npos) return std::nullopt;
    GradeUpdate update;
    update.table = statement.substr(kUpdate.size(), set - kUpdate.size());
    update.condition = statement.substr(where + kWhere.size());
    std::string rest;
    for (const auto letter : statement.substr(set + kSet.size(), where - set - kSet.size()))
      if (letter != ' ')
        rest += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    rest += ',';
    for (auto comma = rest.find(','); comma != std::string::npos; comma = rest.find(',')) {
      const auto equals = rest.find('=');
      update.values[rest.substr(0, equals)] = rest.substr(equals + 1, comma - equals - 1);
      rest.erase(0, comma + 1);
    }
    return update;
  }

  /// Whether that statement gives grades, and doesn't only move the mark of the last evaluation.
  static bool Gives(std::string_view statement) {
    const auto update = Parse(statement);
    return update && update->values.contains("codnota");
  }

  /// Counts the rows that it reaches and that have other grades than it gives.
  [[nodiscard]] std::string DifferingRows() const {
    std::string same;
    for (const auto& [column, value] : values)
      if (column != "ultimaevaluada")
        same += (same.empty() ? "" : " AND ") + (column + "=" + value);
    return "SELECT COUNT(*) FROM " + table + " WHERE " + condition + " AND NOT (" + same + ")";
  }
};

}  // namespace quorvane::test
