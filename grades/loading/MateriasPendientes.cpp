#include "grades/loading/MateriasPendientes.h"

#include "frame/Conexiones.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

Recordset MateriasDeProfesor(std::int32_t idAlumno, std::int32_t evaluacion,
                             std::int16_t gIDPersonal) {
  return Centro().Execute(Sql(
      "SELECT AlumnoPte_MatDet.* FROM (AlumnoPte_MatDet INNER JOIN EvaluacionPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet) INNER JOIN Profesor_Pte ON Profesor_Pte.codMatdet=AlumnoPte_MatDet.codmatdet WHERE CodAlumno={} AND CodNumEvaluacion={} AND Profesor_Pte.codProfesor={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={}) ORDER BY Orden",
      idAlumno, evaluacion, gIDPersonal, evaluacion));
}

Recordset MateriasDeAlumno(std::int32_t idAlumno, std::int32_t evaluacion) {
  return Centro().Execute(Sql(
      "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden",
      evaluacion, idAlumno, evaluacion));
}

Recordset MateriaDeAlumno(std::int32_t idAlumno, std::int32_t codMatDet, std::int32_t evaluacion) {
  return Centro().Execute(Sql(
      "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE CodMatDet={} AND codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden",
      codMatDet, evaluacion, idAlumno, evaluacion));
}

std::optional<std::int32_t> ClaseDeMateria(std::int32_t codMatDet) {
  const auto recordset = Centro().Execute(Sql(
      "SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles={})",
      codMatDet));
  if (recordset.Eof()) return std::nullopt;
  return recordset.Fields("CodEspecificarTipoMateria").Long();
}

void BorrarNotas(std::int32_t idAlumnoPteMatDet) {
  Centro().Execute(
      Sql("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet={}", idAlumnoPteMatDet));
  Centro().Execute(
      Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet={}", idAlumnoPteMatDet));
}

void PurgarMateria(std::int32_t idAlumnoPteMatDet) {
  BorrarNotas(idAlumnoPteMatDet);
  Centro().Execute(
      Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet={}", idAlumnoPteMatDet));
}

DetallesMateria LeerDetalles(std::int32_t codMatDet, bool conProfesores) {
  const auto recordset = Centro().Execute(Sql(
      "SELECT CodPersonal, CodPersonalAsociado, CodMateria, CodSeccion FROM MateriaDetalles WHERE IDMateriaDetalles={}",
      codMatDet));
  DetallesMateria detalles;
  if (conProfesores) {
    detalles.CodPersonal = recordset.Fields("CodPersonal").Long();
    detalles.CodPersonalAsociado = recordset.Fields("CodPersonalAsociado").Long();
  }
  detalles.CodMateria = recordset.Fields("CodMateria").Long();
  detalles.CodSeccion = recordset.Fields("CodSeccion").Integer();
  return detalles;
}

std::string NombreMateria(const DetallesMateria& detalles) {
  auto& centro = Centro();
  const auto materia =
      centro.Execute(Sql("SELECT Nombre FROM Materia WHERE IDMateria={}", detalles.CodMateria))
          .Fields("Nombre")
          .Text();
  const auto curso =
      centro
          .Execute(Sql(
              "SELECT Curso.Descripcion FROM Curso INNER JOIN Seccion ON Seccion.codCurso=Curso.IDCurso WHERE IDSeccion={}",
              detalles.CodSeccion))
          .Fields("Descripcion")
          .Text();
  return materia + " (" + curso + ")";
}

bool NotaAprobada(std::int32_t idNota) {
  return Centro()
      .Execute(Sql("SELECT Aprobado FROM Nota WHERE IDNota={}", idNota))
      .Fields("Aprobado")
      .Flag();
}

std::optional<std::string> NombreObservacion(std::int32_t tipo) {
  const auto recordset = Centro().Execute(Sql(
      "SELECT TipoNota.Nombre FROM TipoNota INNER JOIN TipoMateria ON TipoNota.CodTipoMateria=TipoMateria.IDTipoMateria WHERE TipoMateria.CodEspecificarTipoMateria=5 AND TipoMateria.CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})",
      tipo));
  if (recordset.Eof()) return std::nullopt;
  return recordset.Fields("Nombre").Text();
}

}  // namespace quorvane
