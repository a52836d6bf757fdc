#include "grades/final/CargaFinal.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "frame/cConstCol.h"
#include "grades/Alumnos.h"
#include "platform/data/Connection.h"

namespace quorvane {
namespace {

constexpr const char* kTabla = "EvaluacionActaPte";

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

void AnadirAlumnosFinales(Collection<cAlumno>& colAlumnos, const Seleccion& seleccion,
                          bool blnTutor) {
  Recordset alumnos;
  if (VeTodaLaSeccion(blnTutor))
    alumnos = AlumnosDeSeccion(seleccion.seccion);
  else if (seleccion.gIDPersonal > 0)
    alumnos =
        AlumnosDeProfesor(seleccion.seccion, seleccion.evaluacion, seleccion.gIDPersonal, kTabla);
  if (!alumnos.IsOpen()) return;
  for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
}

std::optional<Recordset> PendientesVisibles(std::int32_t idAlumno, const Seleccion& seleccion,
                                            bool blnTutor, const std::string& condicion) {
  if (VeTodaLaSeccion(blnTutor))
    return MateriasDeAlumno(idAlumno, seleccion.evaluacion, kTabla, condicion);
  if (seleccion.gIDPersonal > 0)
    return MateriasDeProfesor(idAlumno, seleccion.evaluacion, seleccion.gIDPersonal, kTabla);
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
