#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "apps/escuela/SchoolPlan.h"

namespace quorvane {

/// The keys that the next rows take. Shared by all builders of one school.
struct SchoolKeys {
  int teaching = 3;  ///< 1 and 2 are the reserved kinds
  int system = 1;
  int model = 1;
  int subjectKind = 1;
  int gradeKind = 1;
  int grade = 1;
  int course = 1;
  int section = 1;
  int subject = 1;
  int taught = 1;
  int staff = 1;
  int student = 1;
  int pending = 1;
  int ordinary = 1;
  int final = 1;
  int bookSubject = 1;
  int bookGrade = 1;
  int bookEvaluation = 1;
};

/// The marking system of a kind of teaching, as it was written.
struct MarkingRecord {
  int system = 0;
  int model = 0;
  std::array<int, 6> subjectKinds{};         ///< by the number of the `SubjectKind`
  std::array<int, 6> gradeKinds{};           ///< by the place of the column, 0 without that column
  std::array<std::vector<int>, 6> grades{};  ///< the same, worst to best
};

/// A subject as taught in one section.
struct TaughtRecord {
  int id = 0;
  int subject = 0;
  int teacher = 0;
  SubjectKind kind = SubjectKind::Ordinary;
};

struct SectionRecord {
  int id = 0;
  std::size_t teaching = 0;
  std::size_t course = 0;
  std::vector<TaughtRecord> taught;
  std::vector<int> students;
};

/// A centre as it was written. Its kinds of teaching stand in the order of `TeachingPlans`.
struct CentreRecord {
  std::vector<MarkingRecord> markings;
  std::vector<SectionRecord> sections;
  std::vector<int> staff;  ///< tutors in the order of the sections, then the others
};

}  // namespace quorvane
