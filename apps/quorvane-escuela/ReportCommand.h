#pragma once

#include <cstdint>
#include <string>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

struct ReportOptions {
  std::string section;  ///< number or name
  std::int32_t student = 0;
  std::string subject;  ///< the same, in the place of a section
  bool all = false;     ///< every section, into a folder
  bool blank = false;   ///< a sheet to be filled in by hand
  std::string output;   ///< a file .html or .csv, or the folder
  bool csv = false;     ///< in the folder
  std::string name;     ///< of the school; empty for that of its file
};

/// What is wrong with the options; empty when nothing is.
std::string Complaint(const ReportOptions& options);

/// Writes reports and tells which. 0, or 1 when one of all sections couldn't be made; errors as of
/// `ReportReader` and `WriteNewFile`.
int Report(const SchoolAddress& address, const ReportOptions& options);

}  // namespace quorvane
