#include "selection/AlumnosSeccion.h"

#include <utility>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/data/Connection.h"
#include "selection/EvaluacionElegida.h"

namespace quorvane {
namespace {

const std::string kActivos = "Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL)";
const std::string kApellidos =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + ";

Recordset Ejecutar(const std::string& statement) { return Centro().Execute(statement); }

/// The values of a column, each followed by a comma.
std::string Listar(Recordset filas, const std::string& columna) {
  std::string lista;
  for (; !filas.Eof(); filas.MoveNext())
    lista += std::to_string(filas.Fields(columna).Long()) + ",";
  return lista;
}

/// The students who keep a work placement. Keys of pending subjects are compared with those of the
/// main grade book.
std::string SentenciaConservados(const std::string& pendientes) {
  return "SELECT codAlumno FROM TipoMateria INNER JOIN (MateriaDetalles INNER JOIN"
         " Alumno_MateriaDetalles ON"
         " MateriaDetalles.IDMateriaDetalles = Alumno_MateriaDetalles.codMateriaDetalles) ON"
         " MateriaDetalles.codTipoMateria=TipoMateria.IDTipoMateria WHERE"
         " IDAlumno_MateriaDetalles in(" +
         pendientes + ") AND codEspecificarTipoMateria=4";
}

std::string SentenciaSuspensos(std::int32_t primeraFinal, const std::string& pendientes,
                               std::int32_t seccion) {
  const auto mitad =
      kApellidos +
      "Alumno.Nombre AS Nombre FROM Nota INNER JOIN (EvaluacionActaPte INNER JOIN"
      " (AlumnoPte_MatDet INNER JOIN (Alumno INNER JOIN Seccion_AlumnoPte ON"
      " Alumno.IDAlumno=Seccion_AlumnoPte.codalumno) ON"
      " Alumno.IDAlumno=AlumnoPte_MatDet.codAlumno) ON"
      " AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.CodAlumnoPte_MatDet) ON"
      " Nota.IDNota=EvaluacionActaPte.codNota WHERE EvaluacionActaPte.CodNumEvaluacion=" +
      std::to_string(primeraFinal) + " AND CodAlumnoPte_MatDet IN (" + pendientes +
      ") AND Nota.Aprobado=0 AND " + kActivos +
      " AND Seccion_AlumnoPte.codSeccion=" + std::to_string(seccion) + " ";
  return mitad + " UNION " + mitad;
}

std::string SentenciaLista(const std::string& alumnos) {
  return kApellidos + "Alumno.Nombre AS Nombre FROM Alumno WHERE IDAlumno IN(" + alumnos + ")";
}

}  // namespace

std::string AlumnosSeccion::Mitad(const std::string& tabla) const {
  const auto pendientes = "(AlumnoPte_MatDet INNER JOIN " + tabla + " ON " + tabla +
                          ".codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet)";
  const auto materias = blnDocente ? "(" + pendientes +
                                         " INNER JOIN MateriaDetalles ON"
                                         " MateriaDetalles.IDMateriaDetalles="
                                         "AlumnoPte_MatDet.codMatDet)"
                                   : pendientes;
  const auto suyas = blnDocente ? " AND MateriaDetalles.IDMateriaDetalles IN (SELECT codmatdet FROM"
                                  " profesor_Pte WHERE CodProfesor=" +
                                      std::to_string(idPersonal) + ")"
                                : std::string();
  return kApellidos + "Nombre AS Nombre FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN " +
         materias +
         " ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON"
         " Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE " +
         kActivos + " AND Seccion_AlumnoPte.codSeccion=" + std::to_string(seccion) + suyas +
         " AND codNumEvaluacion=" + std::to_string(evaluacion);
}

std::string AlumnosSeccion::SentenciaPendientes() const {
  const auto suyas = blnDocente ? " AND AlumnoPte_MatDet.codMatDet IN (SELECT codmatdet FROM"
                                  " profesor_Pte WHERE CodProfesor=" +
                                      std::to_string(idPersonal) + ")"
                                : std::string();
  return "SELECT IDAlumnoPte_MatDet FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN"
         " (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON"
         " AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON"
         " Seccion_AlumnoPte.codalumno = AlumnoPte_MatDet.codAlumno) ON"
         " Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE " +
         kActivos + " AND Seccion_AlumnoPte.codSeccion=" + std::to_string(seccion) + suyas +
         " AND codNumEvaluacion=" + std::to_string(evaluacion) + " ";
}

Recordset AlumnosSeccion::Leer(const EvaluacionElegida& elegida) const {
  if (elegida.SegundaFinal)
    return SegundaFinal(Ejecutar(SentenciaPendientes()), elegida.PrimeraFinal);
  return Ejecutar(Mitad("EvaluacionPte") + " UNION " + Mitad("EvaluacionActaPte"));
}

Recordset AlumnosSeccion::SegundaFinal(Recordset pendientes, std::int32_t primeraFinal) const {
  if (pendientes.Eof()) return pendientes;
  auto lista = Listar(std::move(pendientes), "IDALUMNOPte_MATDET");
  lista.pop_back();
  const auto conservados = Listar(Ejecutar(SentenciaConservados(lista)), "CODALUMNO");
  auto suspensos = Ejecutar(SentenciaSuspensos(primeraFinal, lista, seccion));
  if (conservados.empty()) return suspensos;
  auto alumnos = conservados + Listar(std::move(suspensos), "IDALUMNO");
  alumnos.pop_back();
  return Ejecutar(SentenciaLista(alumnos));
}

std::string TextoAlumno(const std::string& /*clave*/, const Recordset& fila) {
  return fila.Fields("Nombre").Text();
}

}  // namespace quorvane
