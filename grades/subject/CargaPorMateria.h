#pragma once

#include <cstdint>
#include <utility>

#include "frame/Conexiones.h"
#include "grades/dialog/FormularioNotas.h"
#include "grades/loading/CargaNotas.h"
#include "grades/loading/MateriasPendientes.h"
#include "grades/locks/MateriasBloqueo.h"

namespace quorvane {

/// `CargarMateria` of the forms that walk subjects: gives the student the pending subject of that
/// row and notes it in the list of subjects to lock. Error 3265 for a subject that is neither of
/// kind 1 nor 3: a pending row lacks the column that those are found by.
template <NotasPorMateria F>
void CargarMateriaDeFila(F& form, cAlumno& alumno, const Recordset& fila, std::int32_t clase) {
  const auto codMatDet = fila.Fields("codMatdet").Long();
  AnotarMateria(form.strMateriasBloqueo, codMatDet);
  auto materia = NuevaMateria(fila, codMatDet);
  materia->Orden = fila.Fields("Orden").Byte();
  CargarNotasDeClase(Centro(), *materia, clase, form.PasoUno().evaluacion);
  AnadirMateria(Centro(), alumno, std::move(materia),
                DetallesDeClase(Centro(), fila, codMatDet, clase));
}

}  // namespace quorvane
