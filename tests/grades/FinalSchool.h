#pragma once

#include <string>

#include "tests/grades/Roles.h"
#include "tests/support/ScriptRun.h"
#include "tests/support/SmallSchool.h"

namespace quorvane::test {

/// A small school whose section 321 has pending subjects in the final evaluations 4 and 5.
///
/// Students 3, 1, 2 stand on the register in this order of the list; 4, who has left, too. Pending
/// subjects, with their order: student 1 owes 3111 (pending 1, order 1) and 3112 (pending 2, order
/// 2), student 2 owes 3111 (pending 3), student 3 owes 3113 (pending 4), student 4 owes 3111
/// (pending 5). All have a row, without a grade, in evaluations 4 and 5. Person 2 (user 3) teaches
/// 3112 and 3113; person 1 (user 2) is the section's tutor; user 4 is no member of staff. Lengua
/// (3111) was taught by person 2.
///
/// Columns 1 "Nota" and 5 "Observación"; the kind of grade 51 is an abbreviation here, so that it
/// is found as the tutor's observation.
class FinalSchool : public SmallSchool {
 public:
  FinalSchool();

  /// The flags as the other engine stores them: True is 1.
  void FlagsOfSqlServer() const;
  /// "CodNota|CodNotaObservacion|RE_AC_DIV|Evaluado|UltimaEvaluada" of a pending subject.
  [[nodiscard]] std::string Stored(int pendiente, int evaluacion) const;
  /// Takes back what a form that was left open holds.
  void DropPublications() const;
};

}  // namespace quorvane::test
