#include "grades/final/PorAlumnoFinal.h"

#include <string>

#include "grades/final/RejillaFinal.h"
#include "grades/grid/CeldaNotas.h"
#include "platform/Retivo.h"

namespace quorvane {
namespace {

const std::string& ClaveDeFila(const Retivo& rejilla) {
  return rejilla.TextMatrix(rejilla.Row(), rejilla.Cols() - 1);
}

bool FilaEditable(const Retivo& rejilla) {
  return rejilla.TextMatrix(rejilla.Row(), rejilla.Cols() - 2) == "0";
}

}  // namespace

void LlenarFilasDeAlumno(Retivo& rejilla, const Collection<cMateria>& materias) {
  for (const auto& materia : materias) rejilla.AddItem(materia->Nombre);
  int fila = 1;
  for (const auto& materia : materias) {
    EscribirNotasFinales(rejilla, fila, *materia);
    rejilla.TextMatrix(fila, rejilla.Cols() - 1, std::to_string(materia->IDMatDetalle));
    rejilla.TextMatrix(fila, rejilla.Cols() - 2, "0");
    ++fila;
  }
}

void LlenarCeldaDeAlumno(Retivo& rejilla, const Collection<cMateria>& materias,
                         const DatosPasoUno& seleccion, const Form& form) {
  const auto columna = rejilla.Col();
  const auto& clave = ClaveDeFila(rejilla);
  rejilla.ListaLimpiar(columna);
  if (columna == kColumnaMedidas) {
    LlenarMedidas(rejilla, *materias[clave]);
    return;
  }
  if (!FilaEditable(rejilla)) return;
  rejilla.ListaAnadir(columna, " ", 0);
  LlenarLista(rejilla, columna,
              SentenciaCeldaFinal(seleccion, columna, *materias[clave], clave, true), form);
}

void TomarCeldaDeAlumno(const Retivo& rejilla, const Collection<cMateria>& materias) {
  if (!FilaEditable(rejilla)) return;
  AsignarNotaFinal(*materias[ClaveDeFila(rejilla)], rejilla.Col(), DatoElegido(rejilla));
}

}  // namespace quorvane
