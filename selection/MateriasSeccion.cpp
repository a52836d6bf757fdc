#include "selection/MateriasSeccion.h"

#include <vector>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/data/Connection.h"
#include "selection/EvaluacionElegida.h"

namespace quorvane {
namespace {

/// A work placement: it stays on offer in the second final, passed or not.
constexpr std::int32_t kFormacionEnCentros = 4;

Recordset Ejecutar(const std::string& statement) { return Centro().Execute(statement); }

/// Leaves the rows of that condition; True when there is one.
bool FiltrarRecordset(Recordset& filas, const std::string& condicion) {
  filas.Filter(condicion);
  return !filas.Eof();
}

/// The grades that the subjects have got, in whichever final evaluation.
std::string SentenciaAprobados(const std::string& candidatas) {
  return "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, Nota.Aprobado,"
         " curso.Descripcion  FROM Materia INNER JOIN ((MateriaDetalles INNER JOIN"
         " (AlumnoPte_MatDet INNER JOIN (EvaluacionActaPte INNER JOIN Nota ON"
         " EvaluacionActaPte.codNota=Nota.IDNota) ON"
         " AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON"
         " MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet) INNER JOIN"
         " (Seccion INNER JOIN Curso ON Curso.IDCurso=Seccion.codcurso) ON"
         " Seccion.IDseccion=MateriaDetalles.codSeccion) ON"
         " Materia.IDMateria = MateriaDetalles.codMateria WHERE"
         " MateriaDetalles.IDMateriaDetalles IN(" +
         candidatas + ") ORDER BY IDMateriaDetalles";
}

std::string SentenciaLista(std::int32_t tipoEnsenanza, const std::string& materias) {
  return "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, curso.Descripcion "
         " FROM curso, Seccion, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion WHERE"
         " Materia.IDMateria=MateriaDetalles.CodMateria AND"
         " TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND"
         " TipoMateria.CodEspecificarTipoMateria IN(1,4) AND"
         " TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND"
         " SistemaCalificacion.CodTipoEnsenanza=" +
         std::to_string(tipoEnsenanza) +
         " AND Curso.IDCurso=seccion.codcurso AND Seccion.IDSeccion=MateriaDetalles.codseccion "
         " AND MateriaDetalles.IDMateriaDetalles IN (" +
         materias + ")";
}

}  // namespace

std::string MateriasSeccion::Sentencia(bool blnFinal) const {
  const std::string tabla = blnFinal ? "EvaluacionActaPte" : "EvaluacionPte";
  const std::string curso =
      " AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion";
  const auto tipo =
      " AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND"
      " SistemaCalificacion.CodTipoEnsenanza=" +
      std::to_string(tipoEnsenanza);
  const auto alcance = blnTutor ? curso + tipo
                                : tipo + curso +
                                      " AND  MateriaDetalles.IDMateriaDEtalles IN (SELECT codMatdet"
                                      " FROM Profesor_Pte WHERE CodProfesor=" +
                                      std::to_string(idPersonal) + ")";
  return "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre,"
         " TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion,"
         " Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria,"
         " SistemaCalificacion," +
         tabla +
         "  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND"
         " Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND"
         " Seccion_AlumnoPte.CodSeccion = " +
         std::to_string(seccion) +
         " AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND"
         " MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND"
         " TipoMateria.CodEspecificarTipoMateria IN(" +
         (blnFinal ? "1,4" : "1") + ")" + alcance + " AND " + tabla +
         ".codnumEvaluacion=" + std::to_string(evaluacion) + " AND " + tabla +
         ".codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND"
         " MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE"
         " CodNumEvaluacion=" +
         std::to_string(evaluacion) + ")";
}

Recordset MateriasSeccion::Leer(const EvaluacionElegida& elegida) const {
  auto materias = Ejecutar(Sentencia(elegida.Final));
  return elegida.SegundaFinal ? SegundaFinal(std::move(materias)) : materias;
}

Recordset MateriasSeccion::SegundaFinal(Recordset materias) const {
  std::string conservadas;
  std::string candidatas;
  std::vector<std::int32_t> aryCandidatas;
  for (; !materias.Eof(); materias.MoveNext()) {
    const auto id = materias.Fields("IDMATERIADETALLES").Long();
    if (materias.Fields("codespecificartipomateria").Long() == kFormacionEnCentros) {
      conservadas += std::to_string(id) + ",";
    } else {
      candidatas += std::to_string(id) + ",";
      aryCandidatas.push_back(id);
    }
  }
  std::string suspensas;
  if (!candidatas.empty()) {
    candidatas.pop_back();
    materias = Ejecutar(SentenciaAprobados(candidatas));
    for (const auto id : aryCandidatas)
      if (FiltrarRecordset(materias, "IDMATERIADETALLES=" + std::to_string(id) + " AND Aprobado=0"))
        suspensas += std::to_string(id) + ",";
  }
  auto lista = conservadas + suspensas;
  // With nothing to show what was read last stands: no row passes its filter.
  if (lista.empty()) return materias;
  lista.pop_back();
  return Ejecutar(SentenciaLista(tipoEnsenanza, lista));
}

std::string TextoMateria(const std::string& /*clave*/, const Recordset& fila) {
  return fila.Fields("Nombre").Text() + " (" + fila.Fields("Descripcion").Text() + ")";
}

}  // namespace quorvane
