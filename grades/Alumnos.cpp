#include "grades/Alumnos.h"

#include <memory>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "frame/cConstCol.h"
#include "platform/data/Connection.h"

namespace quorvane {
namespace {

constexpr const char* kNombre =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre";

std::string DeSeccion(std::int32_t seccion) {
  return std::string(kNombre) +
         " FROM Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND "
         "codSeccion=" +
         std::to_string(seccion);
}

}  // namespace

Recordset AlumnosDeSeccion(std::int32_t seccion) {
  return Centro().Execute(DeSeccion(seccion) + " ORDER BY OrdenSeccion");
}

Recordset AlumnosDeProfesor(std::int32_t seccion, std::int32_t evaluacion, std::int16_t gIDPersonal,
                            const std::string& tabla) {
  return Centro().Execute(
      DeSeccion(seccion) +
      " AND IDAlumno IN (SELECT DISTINCT CodAlumno FROM AlumnoPte_MatDet INNER JOIN " + tabla +
      " ON AlumnoPte_MatDet.idAlumnoPte_MatDet=" + tabla +
      ".codAlumnoPte_MatDet WHERE codNumEvaluacion=" + std::to_string(evaluacion) +
      " AND CodMatDet IN (SELECT codMatdet FROM profesor_pte WHERE CodProfesor=" +
      std::to_string(gIDPersonal) + ")) ORDER BY OrdenSeccion");
}

Recordset AlumnoElegido(std::int32_t idAlumno) {
  return Centro().Execute(std::string(kNombre) +
                          " FROM Alumno WHERE IDAlumno=" + std::to_string(idAlumno));
}

void AnadirAlumno(Collection<cAlumno>& colAlumnos, const Recordset& fila) {
  auto alumno = std::make_shared<cAlumno>();
  alumno->IDAlumno = fila.Fields("IDAlumno").Long();
  alumno->Estado = cConstCol().NoModificado;
  const auto clave = Key(alumno->IDAlumno);
  colAlumnos.Add(std::move(alumno), clave);
}

std::string TextoAlumno(std::int32_t idAlumno) {
  const auto recordset =
      Centro().Execute(std::string(kNombre) +
                       ", OrdenSeccion FROM Alumno WHERE IDAlumno=" + std::to_string(idAlumno));
  const auto orden = recordset.Fields("OrdenSeccion").Text();
  return orden + (orden.size() == 1 ? "   " : " ") + recordset.Fields("Nombre").Text();
}

}  // namespace quorvane
