#include "grades/grid/CeldaNotas.h"

#include <algorithm>

#include "frame/modGeneral.h"
#include "platform/controls/Form.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Connection.h"

namespace quorvane {

void LlenarLista(Connection& centro, Retivo& rejilla, int columna, const std::string& sentencia,
                 const Form& form) {
  static const std::string kHolgura = std::string(7, ' ') + std::string(5, ' ');
  std::int32_t mayor = 0;
  auto recordset = centro.Execute(sentencia);
  for (; !recordset.Eof(); recordset.MoveNext()) {
    const auto texto = recordset.Fields("DescripcionCorta").Text();
    if (gblnMostrarAnchoNotas) mayor = std::max(mayor, form.TextWidth(texto + kHolgura));
    rejilla.ListaAnadir(columna, texto, recordset.Fields("IDNota").Long());
  }
  if (mayor != 0) rejilla.ColWidth(columna, mayor);
}

std::int32_t DatoElegido(const Retivo& rejilla) {
  const auto indice = rejilla.ListaIndice();
  return indice == -1 ? 0 : rejilla.ListaDato(indice);
}

}  // namespace quorvane
