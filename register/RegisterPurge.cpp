#include "register/RegisterPurge.h"

#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

void PurgeMissingStudents(Connection& centro) {
  auto gone = centro.Execute(Sql(
      "SELECT DISTINCT codAlumno FROM Alumnopte_matdet WHERE codalumno not in (SELECT IDAlumno FROM Alumno)"));
  for (; !gone.Eof(); gone.MoveNext()) {
    const auto id = gone.Fields("codAlumno").Long();
    centro.Execute(Sql(
        "Delete From Evaluacionactapte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM Alumnopte_matdet WHERE codalumno={})",
        id));
    centro.Execute(Sql(
        "Delete From Evaluacionpte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM Alumnopte_matdet WHERE codalumno={})",
        id));
    centro.Execute(Sql("Delete From Seccion_AlumnoPte where codalumno={}", id));
    centro.Execute(Sql("Delete From Alumnopte_matdet where codalumno={}", id));
  }
}

void PurgeMissingSubjects(Connection& centro) {
  auto gone = centro.Execute(Sql(
      "SELECT DISTINCT codmatdet FROM Alumnopte_matdet WHERE codmatdet not in (SELECT IDMateriaDetalles FROM MateriaDetalles)"));
  for (; !gone.Eof(); gone.MoveNext()) {
    const auto id = gone.Fields("codmatdet").Long();
    centro.Execute(Sql(
        "Delete From Evaluacionactapte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM Alumnopte_matdet WHERE codmatdet={})",
        id));
    centro.Execute(Sql(
        "Delete From Evaluacionpte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM Alumnopte_matdet WHERE codmatdet={})",
        id));
    centro.Execute(Sql("Delete From Alumnopte_matdet where codmatdet={}", id));
  }
}

void DeletePendingSubject(Connection& centro, std::int32_t idAlumnoPteMatDet) {
  centro.Execute(Sql("delete from evaluacionpte where codAlumnoPte_MatDet={}", idAlumnoPteMatDet));
  centro.Execute(
      Sql("delete from evaluacionactapte where codAlumnoPte_MatDet={}", idAlumnoPteMatDet));
  centro.Execute(
      Sql("delete from alumnopte_matdet where idAlumnoPte_MatDet={}", idAlumnoPteMatDet));
}

}  // namespace quorvane
