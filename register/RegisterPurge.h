#pragma once

#include <cstdint>

namespace quorvane {

class Connection;

/// Deletes the pending subjects, of whatever section, whose student is gone, with their grades and
/// the student's places on the registers. For good: leaving the register brings nothing back.
void PurgeMissingStudents(Connection& centro);

/// The same for pending subjects whose subject detail is gone.
void PurgeMissingSubjects(Connection& centro);

/// Deletes one pending subject with its grades.
void DeletePendingSubject(Connection& centro, std::int32_t idAlumnoPteMatDet);

}  // namespace quorvane
