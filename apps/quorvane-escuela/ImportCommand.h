#pragma once

#include <string>

#include "apps/escuela/import/SchoolImport.h"

namespace quorvane {

/// Imports a file and prints what was done and what doesn't fit. 0, or 1 when something doesn't fit
/// and nothing was written therefore; errors as of `ImportRegister`.
int Import(const SchoolAddress& address, const std::string& file, const ImportOptions& options);

}  // namespace quorvane
