#pragma once

#include "tests/support/ScriptRun.h"
#include "tests/support/Sessions.h"
#include "tests/support/SmallSchool.h"

namespace quorvane::test {

/// A small school whose section 321 has pending subjects to grade in evaluations 1 and 2.
///
/// Students 3, 1, 2 stand on the register in this order of the list (1, 2, 3); 4, who has left,
/// too. Pending subjects, with their order: student 1 owes 3112 (pending 1, order 2) and 3111
/// (pending 2, order 1), student 2 owes 3111 (pending 3), student 3 owes 3113 (pending 4), student
/// 4 owes 3111 (pending 5). All are graded in evaluation 1; pending 1, 2 and 3 in 2 too. Person 2
/// (user 3) teaches 3112 and 3113; person 1 (user 2) is the section's tutor; user 4 is no member of
/// staff.
///
/// Columns 1 "Nota" and 5 "Observación" of the grades; the grades of a kind 1 subject in column 5
/// are 201 "Trabaja" and 202 "Mejora". Columns 1 "Valores" and 2 "Taller" of the tutor.
class GradeSchool : public SmallSchool {
 public:
  GradeSchool();

  /// The flags as the other engine stores them: True is 1.
  void FlagsOfSqlServer() const;
  /// "CodNota|...|UltimaEvaluada" of a pending subject in an evaluation.
  [[nodiscard]] std::string Stored(int pendiente, int evaluacion) const;
  /// What the technician's list of locks says, a line a publication: its number, its owner, its
  /// evaluation and the subjects, parted by bars.
  [[nodiscard]] std::vector<std::string> Locks() const;
  /// Removes all that the technician's list shows.
  void RemoveLocks() const;
};

/// Opens step one, chooses section 321 and that evaluation and goes on.
std::string Open(int evaluacion = 1);

}  // namespace quorvane::test
