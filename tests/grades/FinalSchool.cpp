#include "tests/grades/FinalSchool.h"

namespace quorvane::test {

FinalSchool::FinalSchool() {
  for (const auto student : {1, 2, 3, 4}) Registra(321, student);
  static_cast<void>(Pendiente(1, 3111, 1));
  static_cast<void>(Pendiente(1, 3112, 2));
  static_cast<void>(Pendiente(2, 3111, 1));
  static_cast<void>(Pendiente(3, 3113, 1));
  static_cast<void>(Pendiente(4, 3111, 1));
  for (const auto evaluacion : {4, 5})
    for (const auto pending : {1, 2, 3, 4, 5}) Evalua(pending, evaluacion);
  Profesor(2, 3112);
  Profesor(2, 3113);
  Sql("UPDATE TipoNota SET Observacion=0 WHERE IDTipoNota=12;"
      "UPDATE TipoNota SET Abreviatura=0 WHERE IDTipoNota IN (31,41);"
      "UPDATE TipoNota SET Abreviatura=-1, Observacion=0 WHERE IDTipoNota=51;");
}

void FinalSchool::FlagsOfSqlServer() const {
  Sql("UPDATE TipoNota SET Abreviatura=-Abreviatura, Materia=-Materia, Observacion=-Observacion, "
      "Evaluacion=-Evaluacion; UPDATE NumEvaluacion SET Final=-Final;"
      "UPDATE Nota SET Aprobado=-Aprobado; UPDATE Usuario SET AdminSistema=-AdminSistema;");
}

std::string FinalSchool::Stored(int pendiente, int evaluacion) const {
  return Rows(
             "SELECT CodNota, CodNotaObservacion, RE_AC_DIV, Evaluado, UltimaEvaluada FROM "
             "EvaluacionActaPte WHERE CodAlumnoPte_MatDet=" +
             std::to_string(pendiente) + " AND CodNumEvaluacion=" + std::to_string(evaluacion))
      .at(0);
}

void FinalSchool::DropPublications() const {
  Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
}

}  // namespace quorvane::test
