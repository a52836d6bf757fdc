#pragma once

#include <set>

#include "apps/escuela/Prng.h"
#include "apps/escuela/RowWriter.h"
#include "apps/escuela/SchoolRecords.h"

namespace quorvane {

/// Writes pending subjects with their evaluations and grades, and what of the host's grade book
/// belongs to the students that have them.
class PendingBuilder {
 public:
  PendingBuilder(RowWriter& rows, SchoolKeys& keys, Prng& random)
      : rows_(rows), keys_(keys), random_(random) {}

  /// Puts some students of every section above the first course on its register, with subjects of
  /// the course before in a section of their own centre; `percent` of those that stand on none.
  void BuildRegister(const CentreRecord& centre, std::size_t percent);

  /// A pending subject, with rows for the three ordinary evaluations and both finals: the first so
  /// many ordinary ones are graded, and the first final too when a grade is told for it.
  struct Pending {
    int student = 0;
    int taught = 0;
    int order = 1;
    int graded = 0;
    int firstFinal = -1;  ///< a place on the scale of the main grade, -1 for none
  };
  void Add(const MarkingRecord& marking, const Pending& pending);

  /// With the student's subjects of this course in the grade book.
  void PutOnRegister(int registerSection, const SectionRecord& section, int student);
  /// Without effect when the subject has a teacher already.
  void SetTeacher(int taught, int teacher);

 private:
  void AddGradeBook(const SectionRecord& section, int student);
  int AnyGrade(const MarkingRecord& marking, std::size_t place);
  void AddStudent(const CentreRecord& centre, const SectionRecord& section,
                  const SectionRecord& earlier, int student);

  RowWriter& rows_;
  SchoolKeys& keys_;
  Prng& random_;
  std::set<int> onRegister_;   ///< students that stand on a register
  std::set<int> withTeacher_;  ///< subjects that have a row in `Profesor_Pte`
};

}  // namespace quorvane
