#include "grades/loading/MateriasPendientes.h"

#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "register/cMateria.h"

namespace quorvane {

Recordset MateriasDeProfesor(Connection& centro, std::int32_t idAlumno, std::int32_t evaluacion,
                             std::int16_t gIDPersonal) {
  return centro.Execute(Sql(
      "SELECT AlumnoPte_MatDet.* FROM (AlumnoPte_MatDet INNER JOIN EvaluacionPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet) INNER JOIN Profesor_Pte ON Profesor_Pte.codMatdet=AlumnoPte_MatDet.codmatdet WHERE CodAlumno={} AND CodNumEvaluacion={} AND Profesor_Pte.codProfesor={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={}) ORDER BY Orden",
      idAlumno, evaluacion, gIDPersonal, evaluacion));
}

Recordset MateriasDeAlumno(Connection& centro, std::int32_t idAlumno, std::int32_t evaluacion) {
  return centro.Execute(Sql(
      "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden",
      evaluacion, idAlumno, evaluacion));
}

Recordset MateriaDeAlumno(Connection& centro, std::int32_t idAlumno, std::int32_t codMatDet,
                          std::int32_t evaluacion) {
  return centro.Execute(Sql(
      "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE CodMatDet={} AND codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden",
      codMatDet, evaluacion, idAlumno, evaluacion));
}

std::optional<std::int32_t> ClaseDeMateria(Connection& centro, std::int32_t codMatDet) {
  const auto recordset = centro.Execute(Sql(
      "SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles={})",
      codMatDet));
  if (recordset.Eof()) return std::nullopt;
  return recordset.Fields("CodEspecificarTipoMateria").Long();
}

void BorrarNotas(Connection& centro, std::int32_t idAlumnoPteMatDet) {
  centro.Execute(Sql("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet={}", idAlumnoPteMatDet));
  centro.Execute(
      Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet={}", idAlumnoPteMatDet));
}

void PurgarMateria(Connection& centro, std::int32_t idAlumnoPteMatDet) {
  BorrarNotas(centro, idAlumnoPteMatDet);
  centro.Execute(
      Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet={}", idAlumnoPteMatDet));
}

DetallesMateria LeerDetalles(Connection& centro, std::int32_t codMatDet, bool conProfesores) {
  const auto recordset = centro.Execute(Sql(
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

std::string NombreMateria(Connection& centro, const DetallesMateria& detalles) {
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

void TomarDetalles(Connection& centro, cMateria& materia, const DetallesMateria& detalles) {
  materia.IDMateria = detalles.CodMateria;
  materia.IDseccion = detalles.CodSeccion;
  materia.IDProfesor = detalles.CodPersonal;
  materia.IDProfesorAsociado = detalles.CodPersonalAsociado;
  materia.Nombre = NombreMateria(centro, detalles);
}

bool NotaAprobada(Connection& centro, std::int32_t idNota) {
  return centro.Execute(Sql("SELECT Aprobado FROM Nota WHERE IDNota={}", idNota))
      .Fields("Aprobado")
      .Flag();
}

std::optional<std::string> NombreObservacion(Connection& centro, std::int32_t tipo) {
  const auto recordset = centro.Execute(Sql(
      "SELECT TipoNota.Nombre FROM TipoNota INNER JOIN TipoMateria ON TipoNota.CodTipoMateria=TipoMateria.IDTipoMateria WHERE TipoMateria.CodEspecificarTipoMateria=5 AND TipoMateria.CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})",
      tipo));
  if (recordset.Eof()) return std::nullopt;
  return recordset.Fields("Nombre").Text();
}

}  // namespace quorvane
