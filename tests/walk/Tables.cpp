#include "tests/walk/Tables.h"

#include <algorithm>
#include <iterator>

namespace quorvane::test {
namespace {

std::string FieldText(const Recordset& row, std::size_t column) {
  const auto& value = row.Fields(column);
  return value.IsNull() ? "NULL" : value.Text();
}

/// The columns from that one on.
std::string Join(const Recordset& row, std::size_t first) {
  std::string text;
  for (auto column = first; column < row.Names().size(); ++column) {
    if (column > first) text += '|';
    text += FieldText(row, column);
  }
  return text;
}

Rows ReadRows(Connection& connection, const std::string& table) {
  Rows rows;
  auto found = connection.Execute("SELECT * FROM " + table);
  for (; !found.Eof(); found.MoveNext()) rows.insert(Join(found, 0));
  return rows;
}

void ReadGrades(Connection& connection, const std::string& table, Tables& tables) {
  auto found = connection.Execute("SELECT * FROM " + table);
  for (; !found.Eof(); found.MoveNext())
    tables.grades.emplace(Tables::GradesKey{table, FieldText(found, 0)},
                          Tables::Grades{FieldText(found, 1), FieldText(found, 2), Join(found, 3)});
}

}  // namespace

Tables::Tables(Connection& connection)
    : publications(ReadRows(connection, "PublicacionPte")),
      locks(ReadRows(connection, "BloqueoPte")),
      registered(ReadRows(connection, "Seccion_AlumnoPte")),
      teachers(ReadRows(connection, "Profesor_Pte")) {
  auto found = connection.Execute(
      "SELECT IDAlumnoPte_MatDet, CodAlumno, CodMatDet, Orden FROM AlumnoPte_MatDet");
  for (; !found.Eof(); found.MoveNext())
    pending.emplace(FieldText(found, 0),
                    Pending{FieldText(found, 1), FieldText(found, 2), FieldText(found, 3)});
  ReadGrades(connection, "EvaluacionPte", *this);
  ReadGrades(connection, "EvaluacionActaPte", *this);
}

std::set<std::string> Column(Connection& connection, const std::string& select) {
  std::set<std::string> values;
  auto found = connection.Execute(select);
  for (; !found.Eof(); found.MoveNext()) values.insert(FieldText(found, 0));
  return values;
}

std::string Difference(const Rows& before, const Rows& after) {
  constexpr std::size_t kShown = 5;
  Rows gone;
  Rows fresh;
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(),
                      std::inserter(gone, gone.end()));
  std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                      std::inserter(fresh, fresh.end()));
  std::string text;
  const auto tell = [&text](const char* how, const Rows& rows) {
    std::size_t shown = 0;
    for (const auto& row : rows) {
      if (++shown > kShown) break;
      text += std::string(how) + " [" + row + "]";
    }
  };
  tell(" perdida", gone);
  tell(" de más", fresh);
  return text;
}

}  // namespace quorvane::test
