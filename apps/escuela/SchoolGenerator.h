#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

#include "platform/data/Connection.h"

namespace quorvane {

/// Writes a school of any size: as many centres of one shape as the students fill, so that what a
/// screen reads of one section stays the same however large the school is. The same students and
/// seed give the same rows.
class SchoolGenerator {
 public:
  /// More would need numbers of staff beyond the 16 bits that the module has for them.
  static constexpr std::size_t kMostStudents = 500000;

  /// Told after each centre how many students have been written.
  using Progress = std::function<void(std::size_t students)>;

  /// `connection` is open on an empty school of the file database.
  explicit SchoolGenerator(Connection& connection) : connection_(connection) {}

  /// `students` from 1 to `kMostStudents`.
  void Build(std::size_t students, std::uint64_t seed, const Progress& progress);

 private:
  Connection& connection_;
};

}  // namespace quorvane
