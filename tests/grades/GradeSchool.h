#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/SmallSchool.h"

namespace quorvane::test {

/// A small school whose section 321 has pending subjects to grade.
///
/// Students 3, 1, 2 stand on the register in this order of the list (1, 2, 3); 4, who has left,
/// too. Student 1 owes 3111 (order 1) and 3112 (order 2), which are pending 1 and 2 in one of these
/// schools and 2 and 1 in the other; student 2 owes 3111 (pending 3), student 3 owes 3113 (pending
/// 4), student 4 owes 3111 (pending 5). Person 2 (user 3) teaches 3112 and 3113, and taught Lengua
/// (3111); person 1 (user 2) is the section's tutor; user 4 is no member of staff.
///
/// Columns 1 "Nota" and 5 "Observación" of the grades; the grades of a kind 1 subject in column 5
/// are 201 "Trabaja" and 202 "Mejora".
class PendingSchool : public SmallSchool {
 public:
  /// The flags as the other engine stores them: True is 1.
  void FlagsOfSqlServer() const;
  /// Takes back what a form that was left open holds.
  void DropPublications() const;
  /// How many publications and locks there are: "1|3".
  [[nodiscard]] std::string Held() const;
  /// What the technician's list of locks says, a line a publication: its number, its owner, its
  /// evaluation and the subjects, parted by bars.
  [[nodiscard]] std::vector<std::string> Locks() const;
  /// Removes all that the technician's list shows.
  void RemoveLocks() const;

 protected:
  /// What student 1 owes, with its order: pending 1 and 2.
  explicit PendingSchool(const std::array<std::pair<int, int>, 2>& owed);
};

/// The one with evaluations 1, in which all are graded, and 2, in which pending 1, 2 and 3 are;
/// pending 1 is 3112. Columns 1 "Valores" and 2 "Taller" of the tutor.
class GradeSchool : public PendingSchool {
 public:
  GradeSchool();

  /// "CodNota|...|UltimaEvaluada" of a pending subject in an evaluation.
  [[nodiscard]] std::string Stored(int pendiente, int evaluacion) const;
};

/// The one with the final evaluations 4 and 5, in which all have a row without a grade; pending 1
/// is 3111. The kind of grade 51 is an abbreviation here, so that it is found as the tutor's
/// observation.
class FinalSchool : public PendingSchool {
 public:
  FinalSchool();

  /// "CodNota|CodNotaObservacion|RE_AC_DIV|Evaluado|UltimaEvaluada" of a pending subject.
  [[nodiscard]] std::string Stored(int pendiente, int evaluacion) const;
};

}  // namespace quorvane::test
