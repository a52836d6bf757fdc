#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

class Connection;

/// Which pending grades are looked through; 0 for all, or for whoever sees all.
struct StrayFilter {
  std::int32_t evaluation = 0;
  std::int32_t section = 0;
  std::int32_t subject = 0;
  std::int32_t either = 0;  ///< what this member of staff may grade, as tutor or teacher
};

/// A pending grade of an active student who isn't on the register of the section that he is in: the
/// screens that offer a section's subjects go by its register, and don't offer his.
struct StrayStudent {
  std::int32_t evaluation = 0;
  std::int32_t section = 0;  ///< that he is in
  std::int32_t subject = 0;  ///< `MateriaDetalles`
  std::int32_t student = 0;
  std::string name;
  std::int32_t registered = 0;  ///< the section on whose register he is; 0 for none
};

/// Those of ordinary evaluations, or of finals: who has no grade yet comes first, and then by the
/// order in the section. One statement, in no transaction; the engine's errors.
std::vector<StrayStudent> StrayStudents(Connection& school, bool final, const StrayFilter& filter);

}  // namespace quorvane
