#include "grades/loading/CargaNotas.h"

#include <utility>

#include "frame/ClaseMateria.h"
#include "frame/cConstCol.h"
#include "grades/NotasOrdinarias.h"
#include "grades/loading/Alumnos.h"
#include "grades/loading/MateriasPendientes.h"

namespace quorvane {

Recordset AlumnosVisibles(Connection& centro, const DatosPasoUno& pasoUno, bool blnTutor) {
  if (VeLaSeccion(blnTutor)) return AlumnosDeSeccion(centro, pasoUno.seccion);
  if (pasoUno.gIDPersonal > 0)
    return AlumnosDeProfesor(centro, pasoUno.seccion, pasoUno.evaluacion, pasoUno.gIDPersonal);
  return {};
}

std::optional<Recordset> MateriasVisibles(Connection& centro, std::int32_t idAlumno,
                                          const DatosPasoUno& pasoUno, bool blnTutor) {
  if (VeLaSeccion(blnTutor)) return MateriasDeAlumno(centro, idAlumno, pasoUno.evaluacion);
  if (pasoUno.gIDPersonal >= 1)
    return MateriasDeProfesor(centro, idAlumno, pasoUno.evaluacion, pasoUno.gIDPersonal);
  return std::nullopt;
}

std::shared_ptr<cMateria> NuevaMateria(const Recordset& fila, std::int32_t idMatDetalle) {
  auto materia = std::make_shared<cMateria>();
  materia->IDMatDetalle = idMatDetalle;
  materia->CodAlumno_MateriaDetalles = fila.Fields("IDAlumnoPte_MatDet").Long();
  materia->MateriaExterna = false;
  materia->Estado = cConstCol().NoModificado;
  return materia;
}

void CargarNotasDeClase(Connection& centro, cMateria& materia, std::int32_t clase,
                        std::int32_t evaluacion) {
  materia.Fct = ClaseMateria::CuentaComoFct(clase);
  if (materia.Fct) return;
  LeerNotas(centro, materia, evaluacion);
  // The answer isn't used, but a grade that is gone ends the load here.
  if (materia.Nota > 0) static_cast<void>(NotaAprobada(centro, materia.Nota));
}

DetallesMateria DetallesDeClase(Connection& centro, const Recordset& fila, std::int32_t codMatDet,
                                std::int32_t clase) {
  if (!ClaseMateria::CuentaComoFct(clase)) return LeerDetalles(centro, codMatDet);
  // A pending row has no such column: subjects of these kinds can't be loaded here.
  return LeerDetalles(centro, fila.Fields("CodMateriaDetalles").Long());
}

void AnadirMateria(Connection& centro, cAlumno& alumno, std::shared_ptr<cMateria> materia,
                   const DetallesMateria& detalles) {
  TomarDetalles(centro, *materia, detalles);
  const auto clave = Key(materia->IDMatDetalle);
  alumno.colMateria.Add(std::move(materia), clave);
}

}  // namespace quorvane
