#include "grades/subject/CargaPorMateria.h"

#include <memory>
#include <utility>

#include "frame/cConstCol.h"
#include "grades/MateriasBloqueo.h"
#include "grades/MateriasPendientes.h"
#include "grades/NotasOrdinarias.h"

namespace quorvane {
namespace {

constexpr std::int32_t kClaseOrdinaria = 1;

}  // namespace

void CargarMateriaDeFila(cAlumno& alumno, const Recordset& fila, std::int32_t clase,
                         std::int32_t evaluacion, std::string& strMateriasBloqueo) {
  auto materia = std::make_shared<cMateria>();
  const auto codMatDet = fila.Fields("codMatdet").Long();
  AnotarMateria(strMateriasBloqueo, codMatDet);
  materia->IDMatDetalle = codMatDet;
  materia->CodAlumno_MateriaDetalles = fila.Fields("IDAlumnoPte_MatDet").Long();
  materia->Orden = fila.Fields("Orden").Byte();
  materia->MateriaExterna = false;
  materia->Estado = cConstCol().NoModificado;

  DetallesMateria detalles;
  if (clase == kClaseOrdinaria) {
    LeerNotas(*materia, evaluacion);
    // The answer isn't used, but a grade that is gone ends the load here.
    if (materia->Nota > 0) static_cast<void>(NotaAprobada(materia->Nota));
    detalles = LeerDetalles(codMatDet);
  } else {
    materia->Fct = true;
    // A pending row has no such column: subjects of these kinds can't be loaded here.
    detalles = LeerDetalles(fila.Fields("CodMateriaDetalles").Long());
  }
  materia->IDProfesor = detalles.CodPersonal;
  materia->IDProfesorAsociado = detalles.CodPersonalAsociado;
  materia->IDMateria = detalles.CodMateria;
  materia->IDseccion = detalles.CodSeccion;
  materia->Nombre = NombreMateria(detalles);
  const auto clave = Key(materia->IDMatDetalle);
  alumno.colMateria.Add(std::move(materia), clave);
}

}  // namespace quorvane
