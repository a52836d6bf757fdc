#pragma once

#include <cstddef>
#include <cstdint>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

/// The commands of the program. Each prints to standard output what it did or found, in Spanish,
/// and gives the program's exit status: 0, or 1 when something was found or nothing could be done.
/// Failures of the engine and the file system are runtime errors.

int MakeEmpty(const SchoolAddress& address);
int MakeDemo(const SchoolAddress& address);
int Generate(const SchoolAddress& address, std::size_t students, std::uint64_t seed);
/// 3 for a copy that is there and may hold what others wrote meanwhile in part, which it tells to
/// standard error. Ends the program by SIGINT, SIGTERM or SIGHUP when one of them comes before the
/// copy is there.
int Copy(const SchoolAddress& from, const SchoolAddress& to);
int Check(const SchoolAddress& address);
int ShowLocks(const SchoolAddress& address);
int RemoveLocks(const SchoolAddress& address, int publication);

}  // namespace quorvane
