#pragma once

#include <cstdint>
#include <string>

#include "platform/data/Collection.h"
#include "register/cEvaluacion.h"

namespace quorvane {

/// A pending subject of a student. The register and the grade forms use different fields of it.
class cMateria {
 public:
  std::int32_t IDMatDetalle = 0;  ///< the key in `colMateria`; each form says what it puts here
  std::string Nombre;
  std::int32_t IDPersonal = 0;  ///< 255 for a subject created in the chooser
  std::uint8_t Orden = 0;       ///< from 1; 255 marks a subject that is to be deleted
  Collection<cEvaluacion> colEvaluaciones;
  std::uint8_t Estado = 0;
  std::uint8_t EstadoAnterior = 0;

  // The grades: `Nota`.`IDNota`, 0 for none.
  std::int32_t Nota = 0;
  std::int32_t Actitud = 0;
  std::int32_t Observacion = 0;
  std::int32_t Concepto = 0;
  std::int32_t Procedimiento = 0;

  bool Evaluado = false;
  bool Recuperacion = false;
  std::uint8_t REACDIV = 0;                    ///< measure code of the final evaluations
  std::int32_t CodAlumno_MateriaDetalles = 0;  ///< `IDAlumnoPte_MatDet`: what saving writes to
  bool MateriaExterna = false;
  bool Fct = false;  ///< of another kind than the ordinary ones
  std::int32_t IDMateria = 0;
  std::int16_t IDseccion = 0;  ///< the section of the earlier course, not the student's
  std::int32_t IDProfesor = 0;
  std::int32_t IDProfesorAsociado = 0;
  std::uint8_t codCurso = 0;
};

}  // namespace quorvane
