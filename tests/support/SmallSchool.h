#pragma once

#include "tests/support/TestSchool.h"

namespace quorvane::test {

/// A school small enough to know by heart, with the host's tables filled and the module's empty.
///
/// Kinds of teaching: 1 and 2 (reserved), 3 "ESO", 4 "Bachillerato"; centre 1 gives all four,
/// centre 2 the reserved ones alone.
/// Courses: 31 "1º ESO", 32 "2º ESO", 33 "3º ESO" (orders 1 to 3), 41 "1º Bachillerato" (order 4).
/// Sections: 311 "A" and 312 "B" of course 31, 321 "A" of 32, 331 "A" of 33, 411 "A" of 41; the
/// tutor of 321 is person 1, the others have none.
/// Students: 1 to 4 in section 321, 5 in 331; 4 has left. Surnames sort 3, 1, 2.
/// Subjects: 1 "Lengua", 2 "Matemáticas", 3 "Francés" (optional), 4 "Lectura" (an objective of 1),
/// 5 "Valores" (of the tutor's kind), 6 "Taller" (work placement), 7 "Historia" (of kind 4).
/// Subject details: the section followed by the subject, as 3111 for "Lengua" in 311; 311 has 1 to
/// 6, 312 has 1 to 3, 321 has 1 and 2, 331 has 1, 411 has 7.
/// Evaluations: 1 to 3 ordinary, 4 first final, 5 second final, 6 and 7 extraordinary (final too),
/// 11 the reserved one; all sections have all of them.
/// Staff: 1 "Ruiz Soto, Ana" (user 2), 2 "Gil Mora, Luis" (user 3), 3 "Vega Paz, Eva" (no user).
/// Users: 1 administrator, 2 and 3 the teachers, 4 nobody's.
/// Grades (marking system 1 of kind 3): of kind of grade 11 "Nota" 100 to 110 are "0" to "10",
/// pass from 105; of 12 "Observación" 201 "Trabaja" and 202 "Mejora"; of 31 "Valores" 301 "Bien",
/// of 51 "Observación del tutor" 501 "Sigue así", of 41 "Taller" 401 "Apto" and 402 "No apto".
class SmallSchool : public TestSchool {
 public:
  SmallSchool();

  /// Puts the student on the pending register of the section.
  void Registra(int seccion, int alumno) const;
  /// A pending subject of the student; its new `IDAlumnoPte_MatDet`, from 1.
  [[nodiscard]] int Pendiente(int alumno, int matDet, int orden) const;
  /// The pending subject is graded in that evaluation, in the table that the evaluation tells.
  void Evalua(int pendiente, int evaluacion, int nota = 0) const;
  void Profesor(int personal, int matDet) const;
  /// A lock as an open grade form leaves it.
  void Bloquea(int personal, int evaluacion, int matDet, int usuario, int publicacion) const;

  /// The number that a SELECT gives in its one cell.
  [[nodiscard]] int Numero(const std::string& select) const;
  /// All rows of the module's seven tables: for "nothing was written".
  [[nodiscard]] std::vector<std::string> Modulo() const;
};

}  // namespace quorvane::test
