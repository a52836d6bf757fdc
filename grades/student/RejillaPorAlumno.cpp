#include "grades/student/RejillaPorAlumno.h"

#include <string>

#include "frame/Conexiones.h"
#include "grades/NotasOrdinarias.h"
#include "platform/RuntimeError.h"

namespace quorvane {

cMateria& MateriaDeFila(const Retivo& rejilla, const cAlumno& alumno) {
  const auto fila = rejilla.Row();
  const auto columnas = rejilla.Cols();
  const auto& padre = rejilla.TextMatrix(fila, columnas - 2);
  const auto& clave = rejilla.TextMatrix(fila, columnas - 1);
  const auto& materias = alumno.colMateria;
  if (padre == "0") return *materias[clave];
  static_cast<void>(materias[padre]);
  throw RuntimeError(ErrorNumber::MissingMember);  // a subject has no `Objetivos`
}

void LlenarFilas(Connection& centro, Retivo& rejilla, const cAlumno& alumno, bool sinNotas) {
  for (const auto& materia : alumno.colMateria) rejilla.AddItem(materia->Nombre);
  int fila = 1;
  for (const auto& materia : alumno.colMateria) {
    if (!sinNotas) EscribirNotas(centro, rejilla, fila, *materia);
    rejilla.TextMatrix(fila, rejilla.Cols() - 1, std::to_string(materia->IDMatDetalle));
    rejilla.TextMatrix(fila, rejilla.Cols() - 2, "0");
    ++fila;
  }
}

}  // namespace quorvane
