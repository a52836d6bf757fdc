#pragma once

#include <cstdint>

#include "register/cAlumno.h"

namespace quorvane {

class Connection;

/// Which of the two final evaluations this is, as step one has written it.
struct FinalElegida {
  bool mblnFinalSeptiembre = false;        ///< the second
  std::int32_t mlngIdEvaluacionJunio = 0;  ///< then, the first
};

/// The rule of the second final evaluation, for the pending rows of one student, one after another.
/// It offers what the first failed, and work centres whatever became of them there. What the first
/// passed is out. So is what it left without a grade, but that keeps the student in the form. In
/// the first final evaluation everything is offered.
class SegundaFinal {
 public:
  SegundaFinal(Connection& centro, const FinalElegida& elegida)
      : centro_(centro), elegida_(elegida) {}

  /// Whether that row, whose subject is of that kind, is graded. Statements fail as they do.
  [[nodiscard]] bool Ofrece(std::int32_t idAlumnoPteMatDet, std::int32_t clase);

  /// Behind all rows: whether the student stays, with the subjects that he has by then.
  [[nodiscard]] bool Conserva(const cAlumno& alumno) const;

 private:
  Connection& centro_;
  FinalElegida elegida_;
  bool mantiene_ = false;  ///< a row has spoken for the student
};

}  // namespace quorvane
