#include "tests/crowd/Grades.h"

#include <cctype>

namespace quorvane::test {
namespace {

constexpr std::string_view kUpdate = "UPDATE ";
constexpr std::string_view kSet = " SET ";
constexpr std::string_view kWhere = " WHERE ";
constexpr std::string_view kMark = "ultimaevaluada";

std::string Plain(std::string_view text) {
  std::string plain;
  for (const auto letter : text)
    if (letter != ' ') plain += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return plain;
}

}  // namespace

std::optional<GradeUpdate> ParseGradeUpdate(std::string_view statement) {
  if (!statement.starts_with("UPDATE Evaluacion")) return std::nullopt;
  const auto set = statement.find(kSet);
  const auto where = statement.find(kWhere);
  if (set == std::string_view::npos || where == std::string_view::npos) return std::nullopt;
  GradeUpdate update;
  update.table = statement.substr(kUpdate.size(), set - kUpdate.size());
  update.condition = statement.substr(where + kWhere.size());
  auto rest = Plain(statement.substr(set + kSet.size(), where - set - kSet.size())) + ",";
  for (auto comma = rest.find(','); comma != std::string::npos; comma = rest.find(',')) {
    const auto equals = rest.find('=');
    update.values[rest.substr(0, equals)] = rest.substr(equals + 1, comma - equals - 1);
    rest.erase(0, comma + 1);
  }
  return update;
}

std::string GradeUpdate::DifferingRows() const {
  std::string same;
  for (const auto& [column, value] : values)
    if (column != kMark) same += (same.empty() ? "" : " AND ") + (column + "=" + value);
  return "SELECT COUNT(*) FROM " + table + " WHERE " + condition + " AND NOT (" + same + ")";
}

}  // namespace quorvane::test
