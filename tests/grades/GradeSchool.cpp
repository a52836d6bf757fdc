#include "tests/grades/GradeSchool.h"

#include "apps/escuela/LockList.h"
#include "tests/support/Opened.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

std::string StoredRow(const TestSchool& school, const std::string& select, int pendiente,
                      int evaluacion) {
  return school
      .Rows(select + " WHERE CodAlumnoPte_MatDet=" + std::to_string(pendiente) +
            " AND CodNumEvaluacion=" + std::to_string(evaluacion))
      .at(0);
}

}  // namespace

PendingSchool::PendingSchool(const std::array<std::pair<int, int>, 2>& owed) {
  for (const auto student : {1, 2, 3, 4}) Registra(321, student);
  for (const auto& [matDet, orden] : owed) static_cast<void>(Pendiente(1, matDet, orden));
  for (const auto& [student, matDet] : {std::pair{2, 3111}, {3, 3113}, {4, 3111}})
    static_cast<void>(Pendiente(student, matDet, 1));
  for (const auto matDet : {3112, 3113}) Profesor(2, matDet);
  Sql("UPDATE TipoNota SET Observacion=0 WHERE IDTipoNota IN (12,51);"
      "UPDATE TipoNota SET Abreviatura=0 WHERE IDTipoNota IN (31,41)");
}

void PendingSchool::FlagsOfSqlServer() const {
  Sql("UPDATE TipoNota SET Abreviatura=-Abreviatura, Materia=-Materia, Observacion=-Observacion, "
      "Evaluacion=-Evaluacion; UPDATE NumEvaluacion SET Final=-Final;"
      "UPDATE Nota SET Aprobado=-Aprobado; UPDATE Usuario SET AdminSistema=-AdminSistema;");
}

void PendingSchool::DropPublications() const {
  Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
}

std::string PendingSchool::Held() const {
  return Rows("SELECT (SELECT COUNT(*) FROM PublicacionPte), (SELECT COUNT(*) FROM BloqueoPte)")
      .at(0);
}

std::vector<std::string> PendingSchool::Locks() const {
  Opened<TestConnection> connection(Path(), "");
  std::vector<std::string> lines;
  for (const auto& publication : LockList(connection).Read()) {
    auto line = std::to_string(publication.id);
    line.append("|").append(publication.ownerName).append("|").append(publication.evaluation);
    for (const auto& subject : publication.subjects) line.append("|").append(subject);
    lines.push_back(line);
  }
  return lines;
}

void PendingSchool::RemoveLocks() const {
  Opened<TestConnection> connection(Path(), "");
  LockList locks(connection);
  for (const auto& publication : locks.Read()) locks.Remove(publication.id);
}

GradeSchool::GradeSchool() : PendingSchool({{{3112, 2}, {3111, 1}}}) {
  for (const auto pending : {1, 2, 3, 4, 5}) Evalua(pending, 1);
  for (const auto pending : {1, 2, 3}) Evalua(pending, 2);
  Sql("UPDATE TipoNota SET Materia=0, Evaluacion=0 WHERE IDTipoNota IN (31,41);"
      "UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=41;"
      "UPDATE TipoNota SET Materia=0 WHERE IDTipoNota=51");
}

std::string GradeSchool::Stored(int pendiente, int evaluacion) const {
  return StoredRow(*this,
                   "SELECT CodNota, CodNotaConcepto, CodNotaProcedimiento, CodNotaActitud, "
                   "CodNotaObservacion, Evaluado, UltimaEvaluada FROM EvaluacionPte",
                   pendiente, evaluacion);
}

FinalSchool::FinalSchool() : PendingSchool({{{3111, 1}, {3112, 2}}}) {
  for (const auto evaluacion : {4, 5})
    for (const auto pending : {1, 2, 3, 4, 5}) Evalua(pending, evaluacion);
  Sql("UPDATE TipoNota SET Abreviatura=-1 WHERE IDTipoNota=51");
}

std::string FinalSchool::Stored(int pendiente, int evaluacion) const {
  return StoredRow(*this,
                   "SELECT CodNota, CodNotaObservacion, RE_AC_DIV, Evaluado, UltimaEvaluada FROM "
                   "EvaluacionActaPte",
                   pendiente, evaluacion);
}

}  // namespace quorvane::test
