#include "register/CopiarAlumno.h"

namespace quorvane {
namespace {

std::shared_ptr<cEvaluacion> CopiarEvaluacion(const cEvaluacion& origen) {
  auto copia = std::make_shared<cEvaluacion>();
  copia->Estado = origen.Estado;
  copia->EstadoAnterior = origen.EstadoAnterior;
  copia->Extraordinaria = origen.Extraordinaria;
  copia->Final = origen.Final;
  copia->IDEvaluacion = origen.IDEvaluacion;
  copia->Nombre = origen.Nombre;
  copia->Orden = origen.Orden;
  return copia;
}

std::shared_ptr<cMateria> CopiarMateria(const cMateria& origen) {
  auto copia = std::make_shared<cMateria>();
  copia->Estado = origen.Estado;
  copia->EstadoAnterior = origen.EstadoAnterior;
  copia->IDMatDetalle = origen.IDMatDetalle;
  copia->IDPersonal = origen.IDPersonal;
  copia->Nombre = origen.Nombre;
  copia->Orden = origen.Orden;
  for (const auto& evaluacion : origen.colEvaluaciones)
    copia->colEvaluaciones.Add(CopiarEvaluacion(*evaluacion), Key(evaluacion->IDEvaluacion));
  return copia;
}

}  // namespace

std::shared_ptr<cAlumno> CopiarAlumno(const cAlumno& origen) {
  auto copia = std::make_shared<cAlumno>();
  copia->REACDIV = origen.REACDIV;
  copia->Diversificacion = origen.Diversificacion;
  copia->Estado = origen.Estado;
  copia->EstadoAnterior = origen.EstadoAnterior;
  copia->IDAlumno = origen.IDAlumno;
  copia->Nombre = origen.Nombre;
  for (const auto& materia : origen.colMateria)
    copia->colMateria.Add(CopiarMateria(*materia), Key(materia->IDMatDetalle));
  return copia;
}

}  // namespace quorvane
