#pragma once

#include <vector>

#include "apps/escuela/MarkingBuilder.h"
#include "apps/escuela/Prng.h"
#include "apps/escuela/RowWriter.h"
#include "apps/escuela/SchoolRecords.h"

namespace quorvane {

struct CentreOptions {
  int centre = 1;
  std::vector<std::vector<int>> sections;  ///< by kind of teaching and course: how many
  std::size_t studentsPerSection = 0;
  std::size_t students = 0;     ///< in all; the last sections go short
  std::vector<int> staffUsers;  ///< the user of each member of staff, 0 for none; as many as staff
};

/// Writes a centre with its teaching, staff, sections and students, without the pending register.
class CentreBuilder {
 public:
  CentreBuilder(RowWriter& rows, SchoolKeys& keys, Prng& random)
      : rows_(rows), keys_(keys), random_(random), markings_(rows, keys) {}

  /// What all centres share: the reserved kinds of teaching and the evaluations. Once a school.
  void BuildShared();

  CentreRecord Build(const CentreOptions& options);

  /// How many members of staff a centre has: a tutor for each section, and some more.
  static std::size_t StaffCount(const CentreOptions& options);

 private:
  void AddStaff(const CentreOptions& options, CentreRecord& centre);
  void AddTeaching(const CentreOptions& options, std::size_t plan, CentreRecord& centre);
  std::vector<int> AddSubjects(int teaching, const TeachingPlan& plan,
                               const MarkingRecord& marking);
  void AddSection(const CentreOptions& options, SectionRecord section, std::size_t number,
                  const std::vector<int>& subjects, CentreRecord& centre);
  void AddStudents(const CentreOptions& options, SectionRecord& section);

  RowWriter& rows_;
  SchoolKeys& keys_;
  Prng& random_;
  MarkingBuilder markings_;
  std::size_t studentsLeft_ = 0;
};

}  // namespace quorvane
