#pragma once

#include "apps/escuela/RowWriter.h"
#include "apps/escuela/SchoolRecords.h"

namespace quorvane {

/// Writes the marking system of a kind of teaching: kinds of subjects, kinds of grades, grades.
class MarkingBuilder {
 public:
  MarkingBuilder(RowWriter& rows, SchoolKeys& keys) : rows_(rows), keys_(keys) {}

  MarkingRecord Build(int teaching, const TeachingPlan& plan);

  /// A grade that only holds within a scope; each part of it is 0 for any.
  struct ScopedGrade {
    std::string_view text;
    bool passed = false;
    bool exceptional = false;
    int model = 0;
    int course = 0;
    int evaluation = 0;
    int subject = 0;
    int teacher = 0;
  };
  void AddScoped(int gradeKind, const ScopedGrade& grade);

 private:
  int AddSubjectKind(int system, std::string_view name, SubjectKind kind);
  struct GradeKind {
    std::string_view name;
    int place = 1;
    bool column = false;      ///< a column of the grids of subjects
    bool subject = false;     ///< for subjects, not for the student as a whole
    bool evaluation = false;  ///< in ordinary evaluations
  };
  int AddGradeKind(int subjectKind, const GradeKind& kind);
  std::vector<int> AddGrades(int gradeKind, const std::vector<std::string_view>& words);

  RowWriter& rows_;
  SchoolKeys& keys_;
};

}  // namespace quorvane
