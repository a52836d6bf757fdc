#pragma once

#include <tuple>

#include "register/cAlumno.h"
#include "register/cMatProf.h"

namespace quorvane::test {

// All that an object of the register holds itself, in the order of its declaration.

inline auto Fields(const cAlumno& alumno) {
  return std::tuple(alumno.IDAlumno, alumno.Nombre, int{alumno.REACDIV},
                    int{alumno.Diversificacion}, int{alumno.Estado}, int{alumno.EstadoAnterior});
}

inline auto Fields(const cMateria& materia) {
  return std::tuple(materia.IDMatDetalle, materia.Nombre, materia.IDPersonal, int{materia.Orden},
                    int{materia.Estado}, int{materia.EstadoAnterior}, int{materia.codCurso});
}

inline auto Fields(const cEvaluacion& evaluacion) {
  return std::tuple(int{evaluacion.IDEvaluacion}, evaluacion.Nombre, evaluacion.Final,
                    evaluacion.Extraordinaria, int{evaluacion.Orden}, int{evaluacion.Estado},
                    int{evaluacion.EstadoAnterior});
}

inline auto Fields(const cMatProf& matProf) {
  return std::tuple(matProf.IDPersonal, int{matProf.Estado}, matProf.NombreProf, matProf.NombreMat);
}

}  // namespace quorvane::test
