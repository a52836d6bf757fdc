#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

class Connection;

/// A number that no member of staff bears.
inline constexpr std::int32_t kNobody = -1;

/// A student who hasn't left, in a statement that joins `Alumno`.
inline constexpr const char* kActiveStudent = "(Alumno.FechaBaja='' OR Alumno.FechaBaja IS NULL)";

/// The user's row in `Personal`; 0 for none. Fails as its statement does.
std::int32_t StaffOf(Connection& school, std::int32_t user);

/// The condition, with brackets round it, that a member of staff may grade: as the tutor of the
/// student's section, in a statement that joins `Alumno`, or as the teacher of the subject in the
/// column `subject`. `kNobody` may grade nothing.
std::string MayGrade(std::int32_t staff, const std::string& subject);

/// One half of it each.
std::string TutorOf(std::int32_t staff);
std::string TeacherOf(std::int32_t staff, const std::string& subject);

}  // namespace quorvane
