#include "register/RegisterPurge.h"

#include <string>

#include "platform/data/Connection.h"

namespace quorvane {

void PurgeMissingStudents(Connection& centro) {
  auto gone = centro.Execute(
      "SELECT DISTINCT codAlumno FROM Alumnopte_matdet WHERE codalumno not in (SELECT IDAlumno "
      "FROM "
      "Alumno)");
  for (; !gone.Eof(); gone.MoveNext()) {
    const auto id = std::to_string(gone.Fields("codAlumno").Long());
    centro.Execute(
        "Delete From Evaluacionactapte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet "
        "FROM "
        "Alumnopte_matdet WHERE codalumno=" +
        id + ")");
    centro.Execute(
        "Delete From Evaluacionpte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM "
        "Alumnopte_matdet WHERE codalumno=" +
        id + ")");
    centro.Execute("Delete From Seccion_AlumnoPte where codalumno=" + id);
    centro.Execute("Delete From Alumnopte_matdet where codalumno=" + id);
  }
}

void PurgeMissingSubjects(Connection& centro) {
  auto gone = centro.Execute(
      "SELECT DISTINCT codmatdet FROM Alumnopte_matdet WHERE codmatdet not in (SELECT "
      "IDMateriaDetalles FROM MateriaDetalles)");
  for (; !gone.Eof(); gone.MoveNext()) {
    const auto id = std::to_string(gone.Fields("codmatdet").Long());
    centro.Execute(
        "Delete From Evaluacionactapte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet "
        "FROM "
        "Alumnopte_matdet WHERE codmatdet=" +
        id + ")");
    centro.Execute(
        "Delete From Evaluacionpte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM "
        "Alumnopte_matdet WHERE codmatdet=" +
        id + ")");
    centro.Execute("Delete From Alumnopte_matdet where codmatdet=" + id);
  }
}

void DeletePendingSubject(Connection& centro, std::int32_t idAlumnoPteMatDet) {
  const auto id = std::to_string(idAlumnoPteMatDet);
  centro.Execute("delete from evaluacionpte where codAlumnoPte_MatDet=" + id);
  centro.Execute("delete from evaluacionactapte where codAlumnoPte_MatDet=" + id);
  centro.Execute("delete from alumnopte_matdet where idAlumnoPte_MatDet=" + id);
}

}  // namespace quorvane
