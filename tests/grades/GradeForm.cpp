#include "tests/grades/GradeForm.h"

namespace quorvane::test {

std::string GradeForm::Open(const std::string& before) const { return Open(evaluacion, before); }

std::string GradeForm::Open(int other, const std::string& before) const {
  return "nodo " + std::to_string(node) +
         "\nelegir cboCursos =32\nelegir cboSecciones =321\nelegir cboEvaluaciones =" +
         std::to_string(other) + "\n" + choice + before + "pulsar cmdNotaManual1(0)\n";
}

std::string GradeForm::NothingToGrade() const {
  return std::string("informacion \"Zendria Escuela\" \"") + nothing + "\"";
}

std::string PublicationOf(int user, int evaluacion) {
  return "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
         "CodNumEvaluacion) VALUES (7," +
         std::to_string(user) + ",321," + std::to_string(evaluacion) + ")";
}

}  // namespace quorvane::test
