#include "grades/MateriasPendientes.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/data/Connection.h"

namespace quorvane {
namespace {

Recordset Execute(const std::string& statement) { return Centro().Execute(statement); }

std::string SinBloqueadas(std::int32_t evaluacion) {
  return " AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  "
         "CodNumEvaluacion=" +
         std::to_string(evaluacion) + ") ";
}

}  // namespace

Recordset MateriasDeProfesor(std::int32_t idAlumno, std::int32_t evaluacion,
                             std::int16_t gIDPersonal, const std::string& tabla) {
  return Execute("SELECT AlumnoPte_MatDet.* FROM (AlumnoPte_MatDet INNER JOIN " + tabla +
                 " ON AlumnoPte_MatDet.idAlumnoPte_MatDet=" + tabla +
                 ".codAlumnoPte_MatDet) INNER JOIN Profesor_Pte ON "
                 "Profesor_Pte.codMatdet=AlumnoPte_MatDet.codmatdet WHERE CodAlumno=" +
                 std::to_string(idAlumno) + " AND CodNumEvaluacion=" + std::to_string(evaluacion) +
                 " AND Profesor_Pte.codProfesor=" + std::to_string(gIDPersonal) +
                 SinBloqueadas(evaluacion) + "ORDER BY Orden");
}

Recordset MateriasDeAlumno(std::int32_t idAlumno, std::int32_t evaluacion, const std::string& tabla,
                           const std::string& condicion) {
  return Execute("SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN " + tabla + " ON " +
                 tabla + ".codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE " +
                 condicion + "codNumEvaluacion=" + std::to_string(evaluacion) + " AND CodAlumno=" +
                 std::to_string(idAlumno) + SinBloqueadas(evaluacion) + " ORDER BY Orden");
}

std::optional<std::int32_t> ClaseDeMateria(std::int32_t codMatDet) {
  const auto recordset = Execute(
      "SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT "
      "CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles=" +
      std::to_string(codMatDet) + ")");
  if (recordset.Eof()) return std::nullopt;
  return recordset.Fields("CodEspecificarTipoMateria").Long();
}

void BorrarNotas(std::int32_t idAlumnoPteMatDet) {
  const auto id = std::to_string(idAlumnoPteMatDet);
  Execute("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=" + id);
  Execute("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=" + id);
}

void PurgarMateria(std::int32_t idAlumnoPteMatDet) {
  BorrarNotas(idAlumnoPteMatDet);
  Execute("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=" +
          std::to_string(idAlumnoPteMatDet));
}

DetallesMateria LeerDetalles(std::int32_t codMatDet, bool conProfesores) {
  const auto recordset = Execute(
      "SELECT CodPersonal, CodPersonalAsociado, CodMateria, CodSeccion FROM MateriaDetalles WHERE "
      "IDMateriaDetalles=" +
      std::to_string(codMatDet));
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
  const auto materia =
      Execute("SELECT Nombre FROM Materia WHERE IDMateria=" + std::to_string(detalles.CodMateria))
          .Fields("Nombre")
          .Text();
  const auto curso = Execute(
                         "SELECT Curso.Descripcion FROM Curso INNER JOIN Seccion ON "
                         "Seccion.codCurso=Curso.IDCurso WHERE IDSeccion=" +
                         std::to_string(detalles.CodSeccion))
                         .Fields("Descripcion")
                         .Text();
  return materia + " (" + curso + ")";
}

bool NotaAprobada(std::int32_t idNota) {
  return Execute("SELECT Aprobado FROM Nota WHERE IDNota=" + std::to_string(idNota))
      .Fields("Aprobado")
      .Flag();
}

std::optional<std::string> NombreObservacion(std::int32_t tipo) {
  const auto recordset = Execute(
      "SELECT TipoNota.Nombre FROM TipoNota INNER JOIN TipoMateria ON "
      "TipoNota.CodTipoMateria=TipoMateria.IDTipoMateria WHERE "
      "TipoMateria.CodEspecificarTipoMateria=5 AND TipoMateria.CodSistemaCalificacion IN (SELECT "
      "IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza=" +
      std::to_string(tipo) + ")");
  if (recordset.Eof()) return std::nullopt;
  return recordset.Fields("Nombre").Text();
}

}  // namespace quorvane
