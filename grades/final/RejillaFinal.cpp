#include "grades/final/RejillaFinal.h"

#include "frame/Conexiones.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Value.h"

namespace quorvane {

void OcultarColumnas(Retivo& rejilla) {
  rejilla.ColWidth(4, 0);
  rejilla.ColWidth(3, 0);
  if (rejilla.ColWidth(kColumnaNota) >= 1 && rejilla.ColWidth(kColumnaConcepto) >= 1)
    rejilla.ColWidth(kColumnaConcepto, 0);
}

void RestaurarAnchosFinales(Retivo& rejilla, const Anchos& anchos, bool cargando) {
  anchos.Restaurar(rejilla, cargando);
  OcultarColumnas(rejilla);
}

std::string TextoMedida(std::uint8_t medida) {
  switch (medida) {
    case 0:
      return " ";
    case 1:
      return "Refuerzo educativo";
    case 2:
      return "Adaptacion curricular";
    default:
      return "";
  }
}

void EscribirNotasFinales(Connection& centro, Retivo& rejilla, int fila, const cMateria& materia) {
  EscribirNota(centro, rejilla, fila, kColumnaNota, materia.Nota);
  EscribirNota(centro, rejilla, fila, kColumnaConcepto, materia.Concepto);
  EscribirNota(centro, rejilla, fila, kColumnaObservacion, materia.Observacion);
  rejilla.TextMatrix(fila, kColumnaMedidas, TextoMedida(materia.REACDIV));
}

void SeleccionarPrimeraFila(Retivo& rejilla) {
  if (rejilla.Rows() < 2) return;
  rejilla.FixedRows(1);
  rejilla.Row(1);
}

void LlenarMedidas(Retivo& rejilla, const cMateria& materia) {
  if (materia.Nota <= 0) return;
  rejilla.ListaAnadir(kColumnaMedidas, " ", 0);
  rejilla.ListaAnadir(kColumnaMedidas, "Refuerzo educativo", 1);
  rejilla.ListaAnadir(kColumnaMedidas, "Adaptación curricular", 2);
}

void AsignarNotaFinal(cMateria& materia, int columna, std::int32_t valor) {
  switch (columna) {
    case kColumnaNota:
      materia.Nota = valor;
      break;
    case kColumnaConcepto:
      materia.Concepto = valor;
      break;
    case kColumnaObservacion:
      materia.Observacion = valor;
      break;
    case kColumnaMedidas:
      materia.REACDIV = ToByte(valor);
      break;
    default:
      break;
  }
}

}  // namespace quorvane
