#pragma once

#include "platform/data/Connection.h"
#include "tests/walk/Tables.h"

namespace quorvane::test {

/// What grade entry may do to the tables: give grades, once it saves, to rows that are there, and
/// purge pending subjects that have lost their kind. It never makes a row, and loses none.
struct GradeEntry {
  bool accepted = false;  ///< the user has saved
  bool whole = true;      ///< the form closed as forms do: no error, all that it took given back
};

/// `Violation` when the tables went from `before` to `after` in another way. `connection` is read
/// for the kinds of the subjects.
void CheckGradeEntry(Connection& connection, const Tables& before, const Tables& after,
                     const GradeEntry& entry);

}  // namespace quorvane::test
