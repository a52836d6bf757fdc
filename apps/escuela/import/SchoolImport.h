#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

struct ImportOptions {
  bool simulate = false;  ///< looks everything up and writes nothing
  bool whatFits = false;  ///< lines that don't fit, and registers in use, are left out
};

/// What an import has done, would do, or couldn't.
struct ImportReport {
  bool written = false;               ///< false where something doesn't fit, too
  std::vector<std::string> lines;     ///< what is done for each line that fits
  std::vector<std::string> misfits;   ///< what doesn't fit, each with its line's number
  std::vector<std::string> warnings;  ///< students that come to stand on a second register
  std::size_t subjects = 0;           ///< put on the register
  std::size_t students = 0;           ///< that these are of
  std::size_t standing = 0;           ///< stood there before, and were left as they were
  std::size_t teachers = 0;           ///< given to subjects without one
};

/// Puts the students and pending subjects of a file (`PlanImport`) on the register, by playing its
/// dialogs, in one transaction. Nothing is written unless all fits, or `whatFits`. `progress` is
/// told after each gesture, and while a long file is looked up, how far it is, in no unit of its
/// own; what it throws undoes all, too. Errors are 0x80004005 in Spanish, after which the school is
/// as it was. It uses the application's front end for its time.
ImportReport ImportRegister(
    const SchoolAddress& address, const std::string& file, const ImportOptions& options,
    const std::function<void(std::size_t done, std::size_t all)>& progress = {});

}  // namespace quorvane
