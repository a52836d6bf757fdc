#pragma once

#include <cstdint>
#include <optional>

namespace quorvane {
class Connection;
}

namespace quorvane::zendria {

/// What of an evaluation is to be graded: all of a section, or one of its subjects.
struct GradeTarget {
  std::int32_t section = 0;
  std::int32_t subject = 0;  ///< 0 for all
  std::int32_t evaluation = 0;
};

/// A screen of grades in which a target is found, and what is to be chosen there.
struct GradeRoute {
  std::uint8_t node = 0;
  std::int32_t section = 0;
  std::int32_t evaluation = 0;
  std::int32_t subject = 0;  ///< 0 where the screen doesn't ask for one
  std::int32_t student = 0;  ///< 0 where none is meant
};

/// The screen that finds the target for a member of staff (0 for one who sees all): by subject
/// where the section's register has it; else by student, in the section or, where its register
/// hasn't the evaluation, in that on whose register a student is. None where no screen offers it to
/// him. The engine's errors.
std::optional<GradeRoute> RouteTo(Connection& school, const GradeTarget& target,
                                  std::int32_t staff);

}  // namespace quorvane::zendria
