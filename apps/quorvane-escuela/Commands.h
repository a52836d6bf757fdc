#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace quorvane {

/// The commands of the program. Each prints to standard output what it did or found, in Spanish,
/// and gives the program's exit status: 0, or 1 when something was found or nothing could be done.
/// Failures of the engine and the file system are runtime errors.

int MakeEmpty(const std::string& path);
int MakeDemo(const std::string& path);
int Generate(const std::string& path, std::size_t students, std::uint64_t seed);
int Check(const std::string& path);
int ShowLocks(const std::string& path);
int RemoveLocks(const std::string& path, int publication);

}  // namespace quorvane
