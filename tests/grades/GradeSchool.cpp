#include "tests/grades/GradeSchool.h"

#include "apps/escuela/LockList.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {

GradeSchool::GradeSchool() {
  for (const auto student : {1, 2, 3, 4}) Registra(321, student);
  static_cast<void>(Pendiente(1, 3112, 2));
  static_cast<void>(Pendiente(1, 3111, 1));
  static_cast<void>(Pendiente(2, 3111, 1));
  static_cast<void>(Pendiente(3, 3113, 1));
  static_cast<void>(Pendiente(4, 3111, 1));
  for (const auto pending : {1, 2, 3, 4, 5}) Evalua(pending, 1);
  for (const auto pending : {1, 2, 3}) Evalua(pending, 2);
  Profesor(2, 3112);
  Profesor(2, 3113);
  Sql("UPDATE TipoNota SET Observacion=0 WHERE IDTipoNota=12;"
      "UPDATE TipoNota SET Abreviatura=0, Materia=0, Evaluacion=0 WHERE IDTipoNota IN (31,41);"
      "UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=41;"
      "UPDATE TipoNota SET Materia=0, Observacion=0 WHERE IDTipoNota=51;");
}

void GradeSchool::FlagsOfSqlServer() const {
  Sql("UPDATE TipoNota SET Abreviatura=-Abreviatura, Materia=-Materia, Observacion=-Observacion, "
      "Evaluacion=-Evaluacion; UPDATE NumEvaluacion SET Final=-Final;"
      "UPDATE Nota SET Aprobado=-Aprobado; UPDATE Usuario SET AdminSistema=-AdminSistema;");
}

std::string GradeSchool::Stored(int pendiente, int evaluacion) const {
  return Rows(
             "SELECT CodNota, CodNotaConcepto, CodNotaProcedimiento, CodNotaActitud, "
             "CodNotaObservacion, Evaluado, UltimaEvaluada FROM EvaluacionPte WHERE "
             "CodAlumnoPte_MatDet=" +
             std::to_string(pendiente) + " AND CodNumEvaluacion=" + std::to_string(evaluacion))
      .at(0);
}

std::vector<std::string> GradeSchool::Locks() const {
  TestConnection connection(Path(), "");
  connection.Open();
  std::vector<std::string> lines;
  for (const auto& publication : LockList(connection).Read()) {
    auto line = std::to_string(publication.id);
    line.append("|").append(publication.ownerName).append("|").append(publication.evaluation);
    for (const auto& subject : publication.subjects) line.append("|").append(subject);
    lines.push_back(line);
  }
  return lines;
}

void GradeSchool::RemoveLocks() const {
  TestConnection connection(Path(), "");
  connection.Open();
  LockList locks(connection);
  for (const auto& publication : locks.Read()) locks.Remove(publication.id);
}

std::string Open(int evaluacion) {
  return "nodo 124\nelegir cboCursos =32\nelegir cboSecciones =321\nelegir cboEvaluaciones =" +
         std::to_string(evaluacion) + "\npulsar cmdNotaManual1(0)\n";
}

}  // namespace quorvane::test
