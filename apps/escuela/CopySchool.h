#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

/// What a copy has brought over.
struct SchoolCopy {
  struct Table {
    std::string name;
    std::size_t rows = 0;
  };
  std::vector<Table> tables;
  std::vector<std::string> notCopied;  ///< other tables, and columns as "Alumno.Telefono"
  bool passwordsLeft = false;          ///< users had passwords, and there none are kept
  bool oneMoment = true;               ///< false when what others wrote meanwhile may be torn
};

/// Who waits for a copy. Both are called often, between statements.
struct CopyWatch {
  std::function<void(std::size_t done, std::size_t all)> progress;
  std::function<bool()> stop;  ///< true to give the copy up
};

/// Copies a school, as it is at one moment, to where there is none yet (`MakeSchool`): the tables
/// of the schema with all their rows, which are read again there and compared, and the users'
/// passwords where they are kept. Errors are
/// 0x80004005 in Spanish, after which nothing is left; a value that has no place there is told with
/// table, row and column. WritingStopped when `watch` says so before it is done.
SchoolCopy CopySchool(const SchoolAddress& from, const SchoolAddress& to, const CopyWatch& watch);

}  // namespace quorvane
