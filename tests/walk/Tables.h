#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include "platform/data/Connection.h"

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
  explicit Tables(Connection& connection);

  Rows publications;
  Rows locks;
  Rows registered;  ///< `Seccion_AlumnoPte`
  Rows teachers;    ///< `Profesor_Pte`
  std::map<std::string, Pending> pending;
  std::map<GradesKey, Grades> grades;
};

/// The first column of the rows that a SELECT gives.
std::set<std::string> Column(Connection& connection, const std::string& select);

/// A sample of the rows that one has and the other lacks, for a message; empty when they are equal.
std::string Difference(const Rows& before, const Rows& after);

}  // namespace quorvane::test
