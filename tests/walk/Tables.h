#pragma once

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "platform/data/Connection.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {

/// Rows as texts, a column after the other with | between; Null is NULL. Doubled rows count.
using Rows = std::multiset<std::string>;

/// What the module writes, as it stands at one moment.
struct Tables {
  struct Pending {
    std::string student;
    std::string subject;
    std::string order;

    bool operator==(const Pending&) const = default;
  };
  struct Grades {
    std::string pending;
    std::string evaluation;
    std::string values;  ///< the columns that grade entry changes

    bool operator==(const Grades&) const = default;
  };
  /// A row of one of the two tables of grades: the table's name and its key there.
  using GradesKey = std::pair<std::string, std::string>;

  /// Reads them on a connection that nobody watches.
  explicit Tables(Connection& connection)
      : publications(ReadRows(connection, "PublicacionPte")),
        locks(ReadRows(connection, "BloqueoPte")),
        registered(ReadRows(connection, "Seccion_AlumnoPte")),
        teachers(ReadRows(connection, "Profesor_Pte")) {
    auto found = connection.Execute(
        "SELECT IDAlumnoPte_MatDet, CodAlumno, CodMatDet, Orden FROM AlumnoPte_MatDet");
    for (; !found.Eof(); found.MoveNext())
      pending.emplace(Text(found, 0), Pending{Text(found, 1), Text(found, 2), Text(found, 3)});
    ReadGrades(connection, "EvaluacionPte");
    ReadGrades(connection, "EvaluacionActaPte");
  }

  /// The first column of the rows that a SELECT gives.
  static std::set<std::string> Column(Connection& connection, const std::string& select) {
    std::set<std::string> values;
    auto found = connection.Execute(select);
    for (; !found.Eof(); found.MoveNext()) values.insert(Text(found, 0));
    return values;
  }

  Rows publications;
  Rows locks;
  Rows registered;  ///< `Seccion_AlumnoPte`
  Rows teachers;    ///< `Profesor_Pte`
  std::map<std::string, Pending> pending;
  std::map<GradesKey, Grades> grades;

 private:
  static std::string Text(const Recordset& row, std::size_t column) {
    const auto& value = row.Fields(column);
    return value.IsNull() ? "NULL" : value.Text();
  }

  /// The columns from that one on.
  static std::string Join(const Recordset& row, std::size_t first) {
    auto text = Text(row, first);
    for (auto column = first + 1; column < row.Names().size(); ++column)
      text += '|' + Text(row, column);
    return text;
  }

  static Rows ReadRows(Connection& connection, const std::string& table) {
    Rows rows;
    auto found = connection.Execute("SELECT * FROM " + table);
    for (; !found.Eof(); found.MoveNext()) rows.insert(Join(found, 0));
    return rows;
  }

  void ReadGrades(Connection& connection, const std::string& table) {
    auto found = connection.Execute("SELECT * FROM " + table);
    for (; !found.Eof(); found.MoveNext())
      grades.emplace(GradesKey{table, Text(found, 0)},
                     Grades{Text(found, 1), Text(found, 2), Join(found, 3)});
  }
};

/// A sample of the rows that one has and the other lacks, for a message; empty when they are equal.
inline std::string Difference(const Rows& before, const Rows& after) {
  std::string text;
  const auto tell = [&text](const char* how, const Rows& some, const Rows& others) {
    constexpr std::size_t kShown = 5;
    Rows rows;
    std::ranges::set_difference(some, others, std::inserter(rows, rows.end()));
    std::size_t shown = 0;
    for (const auto& row : rows)
      if (++shown <= kShown) text += std::string(how) + " [" + row + "]";
  };
  tell(" perdida", before, after);
  tell(" de más", after, before);
  return text;
}

/// `Violation` that begins with those words, when there is such a difference.
inline void RequireSame(const std::string& what, const std::string& difference) {
  if (!difference.empty()) throw Violation(what + difference);
}

}  // namespace quorvane::test
