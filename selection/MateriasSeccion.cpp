#include "selection/MateriasSeccion.h"

#include <string>
#include <vector>

#include "platform/data/Connection.h"
#include "platform/data/SqlList.h"
#include "selection/EvaluacionElegida.h"

namespace quorvane {
namespace {

/// A work placement: it stays on offer in the second final, passed or not.
constexpr std::int32_t kFormacionEnCentros = 4;

/// Leaves the rows of that condition; True when there is one.
bool FiltrarRecordset(Recordset& filas, const std::string& condicion) {
  filas.Filter(condicion);
  return !filas.Eof();
}

}  // namespace

Recordset MateriasSeccion::Ordinarias(Connection& centro) const {
  if (blnTutor)
    return centro.Execute(Sql(
        "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion,EvaluacionPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND TipoMateria.CodEspecificarTipoMateria IN(1) AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza={} AND EvaluacionPte.codnumEvaluacion={} AND EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE CodNumEvaluacion={})",
        seccion, tipoEnsenanza, evaluacion, evaluacion));
  return centro.Execute(Sql(
      "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion,EvaluacionPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND TipoMateria.CodEspecificarTipoMateria IN(1) AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza={} AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion AND  MateriaDetalles.IDMateriaDEtalles IN (SELECT codMatdet FROM Profesor_Pte WHERE CodProfesor={}) AND EvaluacionPte.codnumEvaluacion={} AND EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE CodNumEvaluacion={})",
      seccion, tipoEnsenanza, idPersonal, evaluacion, evaluacion));
}

Recordset MateriasSeccion::Finales(Connection& centro) const {
  if (blnTutor)
    return centro.Execute(Sql(
        "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion,EvaluacionActaPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND TipoMateria.CodEspecificarTipoMateria IN(1,4) AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza={} AND EvaluacionActaPte.codnumEvaluacion={} AND EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE CodNumEvaluacion={})",
        seccion, tipoEnsenanza, evaluacion, evaluacion));
  return centro.Execute(Sql(
      "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion,EvaluacionActaPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND TipoMateria.CodEspecificarTipoMateria IN(1,4) AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza={} AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion AND  MateriaDetalles.IDMateriaDEtalles IN (SELECT codMatdet FROM Profesor_Pte WHERE CodProfesor={}) AND EvaluacionActaPte.codnumEvaluacion={} AND EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE CodNumEvaluacion={})",
      seccion, tipoEnsenanza, idPersonal, evaluacion, evaluacion));
}

Recordset MateriasSeccion::Leer(Connection& centro, const EvaluacionElegida& elegida) const {
  if (elegida.SegundaFinal) return SegundaFinal(centro);
  return elegida.Final ? Finales(centro) : Ordinarias(centro);
}

Recordset MateriasSeccion::SegundaFinal(Connection& centro) const {
  auto materias = Finales(centro);
  SqlList lista;  // the kept ones, then the failed ones
  SqlList candidatas;
  std::vector<std::int32_t> aryCandidatas;
  for (; !materias.Eof(); materias.MoveNext()) {
    const auto id = materias.Fields("IDMATERIADETALLES").Long();
    if (materias.Fields("codespecificartipomateria").Long() == kFormacionEnCentros) {
      lista.Add(id);
    } else {
      candidatas.Add(id);
      aryCandidatas.push_back(id);
    }
  }
  if (!candidatas.Empty()) {
    materias = centro.Execute(Sql(
        "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, Nota.Aprobado, curso.Descripcion  FROM Materia INNER JOIN ((MateriaDetalles INNER JOIN (AlumnoPte_MatDet INNER JOIN (EvaluacionActaPte INNER JOIN Nota ON EvaluacionActaPte.codNota=Nota.IDNota) ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet) INNER JOIN (Seccion INNER JOIN Curso ON Curso.IDCurso=Seccion.codcurso) ON Seccion.IDseccion=MateriaDetalles.codSeccion) ON Materia.IDMateria = MateriaDetalles.codMateria WHERE MateriaDetalles.IDMateriaDetalles IN({}) ORDER BY IDMateriaDetalles",
        candidatas));
    for (const auto id : aryCandidatas)
      if (FiltrarRecordset(materias, Sql("IDMATERIADETALLES={} AND Aprobado=0", id))) lista.Add(id);
  }
  // With nothing to show what was read last stands: no row passes its filter.
  if (lista.Empty()) return materias;
  return centro.Execute(Sql(
      "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, curso.Descripcion  FROM curso, Seccion, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND TipoMateria.CodEspecificarTipoMateria IN(1,4) AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza={} AND Curso.IDCurso=seccion.codcurso AND Seccion.IDSeccion=MateriaDetalles.codseccion  AND MateriaDetalles.IDMateriaDetalles IN ({})",
      tipoEnsenanza, lista));
}

}  // namespace quorvane
