#include "selection/AlumnosSeccion.h"

#include <utility>

#include "platform/data/Connection.h"
#include "platform/data/SqlList.h"
#include "selection/EvaluacionElegida.h"

namespace quorvane {
namespace {

void Anadir(SqlList& lista, Recordset filas, const char* columna) {
  for (; !filas.Eof(); filas.MoveNext()) lista.Add(filas.Fields(columna).Long());
}

}  // namespace

Recordset AlumnosSeccion::ConFilas(Connection& centro) const {
  if (blnDocente)
    return centro.Execute(Sql(
        "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN ((AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet) INNER JOIN MateriaDetalles ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet) ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND MateriaDetalles.IDMateriaDetalles IN (SELECT codmatdet FROM profesor_Pte WHERE CodProfesor={}) AND codNumEvaluacion={} UNION SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN ((AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet) INNER JOIN MateriaDetalles ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet) ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND MateriaDetalles.IDMateriaDetalles IN (SELECT codmatdet FROM profesor_Pte WHERE CodProfesor={}) AND codNumEvaluacion={}",
        seccion, idPersonal, evaluacion, seccion, idPersonal, evaluacion));
  return centro.Execute(Sql(
      "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN (AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet) ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND codNumEvaluacion={} UNION SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet) ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND codNumEvaluacion={}",
      seccion, evaluacion, seccion, evaluacion));
}

Recordset AlumnosSeccion::PendientesDeActa(Connection& centro) const {
  if (blnDocente)
    return centro.Execute(Sql(
        "SELECT IDAlumnoPte_MatDet FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON Seccion_AlumnoPte.codalumno = AlumnoPte_MatDet.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND AlumnoPte_MatDet.codMatDet IN (SELECT codmatdet FROM profesor_Pte WHERE CodProfesor={}) AND codNumEvaluacion={} ",
        seccion, idPersonal, evaluacion));
  return centro.Execute(Sql(
      "SELECT IDAlumnoPte_MatDet FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON Seccion_AlumnoPte.codalumno = AlumnoPte_MatDet.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND codNumEvaluacion={} ",
      seccion, evaluacion));
}

Recordset AlumnosSeccion::Leer(Connection& centro, const EvaluacionElegida& elegida) const {
  return elegida.SegundaFinal ? SegundaFinal(centro, elegida.PrimeraFinal) : ConFilas(centro);
}

Recordset AlumnosSeccion::SegundaFinal(Connection& centro, std::int32_t primeraFinal) const {
  auto filas = PendientesDeActa(centro);
  if (filas.Eof()) return filas;
  SqlList pendientes;
  Anadir(pendientes, std::move(filas), "IDALUMNOPte_MATDET");
  // The keys of pending subjects are compared with those of the main grade book.
  SqlList alumnos;
  Anadir(
      alumnos,
      centro.Execute(Sql(
          "SELECT codAlumno FROM TipoMateria INNER JOIN (MateriaDetalles INNER JOIN Alumno_MateriaDetalles ON MateriaDetalles.IDMateriaDetalles = Alumno_MateriaDetalles.codMateriaDetalles) ON MateriaDetalles.codTipoMateria=TipoMateria.IDTipoMateria WHERE IDAlumno_MateriaDetalles in({}) AND codEspecificarTipoMateria=4",
          pendientes)),
      "CODALUMNO");
  auto suspensos = centro.Execute(Sql(
      "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS Nombre FROM Nota INNER JOIN (EvaluacionActaPte INNER JOIN (AlumnoPte_MatDet INNER JOIN (Alumno INNER JOIN Seccion_AlumnoPte ON Alumno.IDAlumno=Seccion_AlumnoPte.codalumno) ON Alumno.IDAlumno=AlumnoPte_MatDet.codAlumno) ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.CodAlumnoPte_MatDet) ON Nota.IDNota=EvaluacionActaPte.codNota WHERE EvaluacionActaPte.CodNumEvaluacion={} AND CodAlumnoPte_MatDet IN ({}) AND Nota.Aprobado=0 AND Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={}  UNION SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS Nombre FROM Nota INNER JOIN (EvaluacionActaPte INNER JOIN (AlumnoPte_MatDet INNER JOIN (Alumno INNER JOIN Seccion_AlumnoPte ON Alumno.IDAlumno=Seccion_AlumnoPte.codalumno) ON Alumno.IDAlumno=AlumnoPte_MatDet.codAlumno) ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.CodAlumnoPte_MatDet) ON Nota.IDNota=EvaluacionActaPte.codNota WHERE EvaluacionActaPte.CodNumEvaluacion={} AND CodAlumnoPte_MatDet IN ({}) AND Nota.Aprobado=0 AND Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} ",
      primeraFinal, pendientes, seccion, primeraFinal, pendientes, seccion));
  if (alumnos.Empty()) return suspensos;
  Anadir(alumnos, std::move(suspensos), "IDALUMNO");
  return centro.Execute(Sql(
      "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS Nombre FROM Alumno WHERE IDAlumno IN({})",
      alumnos));
}

}  // namespace quorvane
