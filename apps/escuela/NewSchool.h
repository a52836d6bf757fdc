#pragma once

#include <exception>
#include <functional>

#include "apps/escuela/SchoolAddress.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// A school's writing that was given up: nothing of it is left.
class WritingStopped : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "Interrumpida"; }
};

/// Makes a school where the address says: its tables, and the rows that `fill` writes. A file must
/// not be there yet, see `MakeSchoolFile`. A database behind ODBC must be there, of an engine that
/// the driver names PostgreSQL, SQL Server or SQLite, and hold none of a school's tables: that and
/// any failure is error 0x80004005 with a text in Spanish. All is written in one transaction, so
/// after a failure nothing is left; where the connection is lost while the server ends it, the text
/// tells that nobody knows. `goOn`, unless empty, is called before each statement: what it throws,
/// as `WritingStopped`, ends the work as a failure does.
void MakeSchool(const SchoolAddress& address, const std::function<void(Connection& school)>& fill,
                const std::function<void()>& goOn = {});

}  // namespace quorvane
