#include "grades/final/CargaFinal.h"

#include "frame/cConstCol.h"
#include "grades/loading/Alumnos.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {
namespace {

std::optional<Recordset> PendientesDeProfesor(Connection& centro, std::int32_t idAlumno,
                                              const DatosPasoUno& seleccion) {
  if (seleccion.gIDPersonal <= 0) return std::nullopt;
  return centro.Execute(Sql(
      "SELECT AlumnoPte_MatDet.* FROM (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) INNER JOIN Profesor_Pte ON Profesor_Pte.codMatdet=AlumnoPte_MatDet.codmatdet WHERE CodAlumno={} AND CodNumEvaluacion={} AND Profesor_Pte.codProfesor={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={}) ORDER BY Orden",
      idAlumno, seleccion.evaluacion, seleccion.gIDPersonal, seleccion.evaluacion));
}

/// The statement runs as in the ordinary forms, but nobody looks at the answer.
void PreguntarAprobado(Connection& centro, std::int32_t nota) {
  if (nota > 0) centro.Execute(Sql("SELECT Aprobado FROM Nota WHERE IDNota={}", nota));
}

}  // namespace

void AnadirAlumnosFinales(Connection& centro, Collection<cAlumno>& colAlumnos,
                          const DatosPasoUno& seleccion, bool blnTutor) {
  Recordset alumnos;
  if (VeLaSeccion(blnTutor))
    alumnos = AlumnosDeSeccion(centro, seleccion.seccion);
  else if (seleccion.gIDPersonal > 0)
    alumnos = centro.Execute(Sql(
        "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion={} AND IDAlumno IN (SELECT DISTINCT CodAlumno FROM AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodMatDet IN (SELECT codMatdet FROM profesor_pte WHERE CodProfesor={})) ORDER BY OrdenSeccion",
        seleccion.seccion, seleccion.evaluacion, seleccion.gIDPersonal));
  if (!alumnos.IsOpen()) return;
  for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
}

std::optional<Recordset> PendientesVisibles(Connection& centro, std::int32_t idAlumno,
                                            const DatosPasoUno& seleccion, bool blnTutor) {
  if (!VeLaSeccion(blnTutor)) return PendientesDeProfesor(centro, idAlumno, seleccion);
  return centro.Execute(Sql(
      "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden",
      seleccion.evaluacion, idAlumno, seleccion.evaluacion));
}

std::optional<Recordset> PendientesDeMateria(Connection& centro, std::int32_t idAlumno,
                                             std::int32_t codMatDet, const DatosPasoUno& seleccion,
                                             bool blnTutor) {
  if (!VeLaSeccion(blnTutor)) return PendientesDeProfesor(centro, idAlumno, seleccion);
  return centro.Execute(Sql(
      "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE codmatdet={} AND codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden",
      codMatDet, seleccion.evaluacion, idAlumno, seleccion.evaluacion));
}

std::shared_ptr<cMateria> NuevaMateriaFinal(const Recordset& fila, std::int32_t clase,
                                            std::int32_t idMatDetalle) {
  auto materia = std::make_shared<cMateria>();
  materia->IDMatDetalle = idMatDetalle;
  materia->CodAlumno_MateriaDetalles = fila.Fields("IDAlumnoPte_MatDet").Long();
  materia->MateriaExterna = false;
  materia->Fct = ClaseMateria::CuentaComoFct(clase);
  materia->Estado = cConstCol().NoModificado;
  return materia;
}

void LeerNotasFinales(Connection& centro, cMateria& materia, std::int32_t evaluacion) {
  const auto notas = centro.Execute(Sql(
      "SELECT Evaluado, CodNota, CodNotaObservacion, RE_AC_DIV FROM EvaluacionActaPte WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet={}",
      evaluacion, materia.CodAlumno_MateriaDetalles));
  materia.REACDIV = notas.Fields("RE_AC_DIV").Byte();
  materia.Evaluado = notas.Fields("Evaluado").Flag();
  materia.Nota = notas.Fields("CodNota").Long();
  materia.Observacion = notas.Fields("CodNotaObservacion").Long();
  materia.Recuperacion = false;
  PreguntarAprobado(centro, materia.Nota);
}

void LeerNotasFct(Connection& centro, cMateria& materia, std::int32_t evaluacion) {
  TomarNotasFct(
      centro, materia,
      centro.Execute(Sql(
          "SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActaPte WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet={}",
          evaluacion, materia.CodAlumno_MateriaDetalles)));
}

void TomarNotasFct(Connection& centro, cMateria& materia, const Recordset& notas) {
  materia.Nota = notas.Fields("CodNota").Long();
  materia.Observacion = notas.Fields("CodNotaObservacion").Long();
  PreguntarAprobado(centro, materia.Nota);
  materia.Recuperacion = false;
}

}  // namespace quorvane
