#include "grades/loading/Alumnos.h"

#include <memory>

#include "frame/cConfiguracion.h"
#include "frame/cConstCol.h"
#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

Recordset AlumnosDeSeccion(Connection& centro, std::int32_t seccion) {
  return centro.Execute(Sql(
      "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion={} ORDER BY OrdenSeccion",
      seccion));
}

Recordset AlumnosDeProfesor(Connection& centro, std::int32_t seccion, std::int32_t evaluacion,
                            std::int16_t gIDPersonal) {
  return centro.Execute(Sql(
      "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion={} AND IDAlumno IN (SELECT DISTINCT CodAlumno FROM AlumnoPte_MatDet INNER JOIN EvaluacionPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodMatDet IN (SELECT codMatdet FROM profesor_pte WHERE CodProfesor={})) ORDER BY OrdenSeccion",
      seccion, evaluacion, gIDPersonal));
}

Recordset AlumnoElegido(Connection& centro, std::int32_t idAlumno) {
  return centro.Execute(Sql(
      "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno WHERE IDAlumno={}",
      idAlumno));
}

void AnadirAlumno(Collection<cAlumno>& colAlumnos, const Recordset& fila) {
  auto alumno = std::make_shared<cAlumno>();
  alumno->IDAlumno = fila.Fields("IDAlumno").Long();
  alumno->Estado = cConstCol().NoModificado;
  const auto clave = Key(alumno->IDAlumno);
  colAlumnos.Add(std::move(alumno), clave);
}

std::string AlumnoConOrden(Connection& centro, std::int32_t idAlumno) {
  const auto recordset = centro.Execute(Sql(
      "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre, OrdenSeccion FROM Alumno WHERE IDAlumno={}",
      idAlumno));
  const auto orden = recordset.Fields("OrdenSeccion").Text();
  return orden + (orden.size() == 1 ? "   " : " ") + recordset.Fields("Nombre").Text();
}

void SinMiembro(const cAlumno& /*alumno*/) { throw RuntimeError(ErrorNumber::MissingMember); }

bool VeLaSeccion(bool blnTutor) { return cConfiguracion::Instancia().intIDPerfil == 0 || blnTutor; }

bool PuedeCalificar(const DatosPasoUno& pasoUno) {
  return pasoUno.gIDPersonal != 0 || cConfiguracion::Instancia().intIDPerfil <= 0;
}

}  // namespace quorvane
