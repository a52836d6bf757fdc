#include "grades/final/CargaFinal.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "frame/cConstCol.h"
#include "grades/loading/Alumnos.h"
#include "platform/Connection.h"
#include "platform/Sql.h"

namespace quorvane {
namespace {

Recordset Execute(const std::string& statement) { return Centro().Execute(statement); }

bool VeTodaLaSeccion(bool blnTutor) {
  return cConfiguracion::Instancia().intIDPerfil == 0 || blnTutor;
}

/// What becomes of a row in the second final evaluation.
struct Suerte {
  bool fuera = false;
  bool mantieneAlumno = false;
};

Suerte EnSegundaFinal(std::int32_t clase, std::int32_t idEvaluacionJunio, std::int32_t id) {
  if (clase == kClaseFct) return {false, true};
  const auto primera = Execute(
      "SELECT Aprobado FROM Nota WHERE IdNota =(SELECT CodNota FROM EvaluacionActaPte WHERE "
      "CodNumEvaluacion=" +
      std::to_string(idEvaluacionJunio) + " AND CodAlumnoPte_MatDet=" + std::to_string(id) + ")");
  if (primera.Eof()) return {true, true};
  const auto aprobada = primera.Fields("Aprobado").Flag();
  return {aprobada, !aprobada};
}

/// The statement runs as in the ordinary forms, but nobody looks at the answer.
void PreguntarAprobado(std::int32_t nota) {
  if (nota > 0) Execute("SELECT Aprobado FROM Nota WHERE IDNota=" + std::to_string(nota));
}

}  // namespace

void AnadirAlumnosFinales(Collection<cAlumno>& colAlumnos, const DatosPasoUno& seleccion,
                          bool blnTutor) {
  Recordset alumnos;
  if (VeTodaLaSeccion(blnTutor))
    alumnos = AlumnosDeSeccion(seleccion.seccion);
  else if (seleccion.gIDPersonal > 0)
    alumnos = Execute(Sql(
        "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion={} AND IDAlumno IN (SELECT DISTINCT CodAlumno FROM AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodMatDet IN (SELECT codMatdet FROM profesor_pte WHERE CodProfesor={})) ORDER BY OrdenSeccion",
        seleccion.seccion, seleccion.evaluacion, seleccion.gIDPersonal));
  if (!alumnos.IsOpen()) return;
  for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
}

std::optional<Recordset> PendientesVisibles(std::int32_t idAlumno, const DatosPasoUno& seleccion,
                                            bool blnTutor, const std::string& condicion) {
  if (VeTodaLaSeccion(blnTutor))
    return Execute(
        "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE " +
        condicion +
        Sql("codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden",
            seleccion.evaluacion, idAlumno, seleccion.evaluacion));
  if (seleccion.gIDPersonal > 0)
    return Execute(Sql(
        "SELECT AlumnoPte_MatDet.* FROM (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) INNER JOIN Profesor_Pte ON Profesor_Pte.codMatdet=AlumnoPte_MatDet.codmatdet WHERE CodAlumno={} AND CodNumEvaluacion={} AND Profesor_Pte.codProfesor={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={}) ORDER BY Orden",
        idAlumno, seleccion.evaluacion, seleccion.gIDPersonal, seleccion.evaluacion));
  return std::nullopt;
}

bool RecorrerPendientes(Recordset& filas, const FinalElegida& elegida,
                        const std::function<void(const Recordset&, std::int32_t)>& cargar) {
  auto mantener = false;
  while (!filas.Eof()) {
    const auto id = filas.Fields("IDAlumnoPte_MatDet").Long();
    const auto clase = ClaseDeMateria(filas.Fields("CodMatDet").Long());
    if (!clase) {
      filas.MoveNext();
      PurgarMateria(id);
      continue;
    }
    if (*clase != kClaseValores) {
      Suerte suerte;
      if (elegida.mblnFinalSeptiembre)
        suerte = EnSegundaFinal(*clase, elegida.mlngIdEvaluacionJunio, id);
      mantener = mantener || suerte.mantieneAlumno;
      if (!suerte.fuera) cargar(filas, *clase);
    }
    filas.MoveNext();
  }
  return mantener;
}

std::shared_ptr<cMateria> NuevaMateriaFinal(const Recordset& fila, std::int32_t idMatDetalle) {
  auto materia = std::make_shared<cMateria>();
  materia->IDMatDetalle = idMatDetalle;
  materia->CodAlumno_MateriaDetalles = fila.Fields("IDAlumnoPte_MatDet").Long();
  materia->MateriaExterna = false;
  materia->Estado = cConstCol().NoModificado;
  return materia;
}

void LeerNotasFinales(cMateria& materia, std::int32_t evaluacion) {
  const auto notas = Execute(
      "SELECT Evaluado, CodNota, CodNotaObservacion, RE_AC_DIV FROM EvaluacionActaPte WHERE "
      "CodNumEvaluacion=" +
      std::to_string(evaluacion) +
      " AND CodAlumnoPte_MatDet=" + std::to_string(materia.CodAlumno_MateriaDetalles));
  materia.REACDIV = notas.Fields("RE_AC_DIV").Byte();
  materia.Evaluado = notas.Fields("Evaluado").Flag();
  materia.Nota = notas.Fields("CodNota").Long();
  materia.Observacion = notas.Fields("CodNotaObservacion").Long();
  materia.Recuperacion = false;
  PreguntarAprobado(materia.Nota);
}

void LeerNotasFct(cMateria& materia, const std::string& tabla, const std::string& clave,
                  std::int32_t evaluacion, std::int32_t id) {
  const auto notas = Execute("SELECT Evaluado, CodNota, CodNotaObservacion FROM " + tabla +
                             " WHERE CodNumEvaluacion=" + std::to_string(evaluacion) + " AND " +
                             clave + "=" + std::to_string(id));
  materia.Nota = notas.Fields("CodNota").Long();
  materia.Observacion = notas.Fields("CodNotaObservacion").Long();
  PreguntarAprobado(materia.Nota);
  materia.Recuperacion = false;
}

void TomarDetalles(cMateria& materia, const DetallesMateria& detalles) {
  materia.IDMateria = detalles.CodMateria;
  materia.IDseccion = detalles.CodSeccion;
  materia.IDProfesor = detalles.CodPersonal;
  materia.IDProfesorAsociado = detalles.CodPersonalAsociado;
  materia.Nombre = NombreMateria(detalles);
}

}  // namespace quorvane
