#include "grades/grid/CeldaNotas.h"

#include <algorithm>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "platform/controls/Form.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Connection.h"

namespace quorvane {

std::string DeMateriaYProfesores(const std::string& codMateria, std::int32_t idProfesor,
                                 std::int32_t idProfesorAsociado) {
  return " AND (CodMateria=0 OR CodMateria=" + codMateria +
         ") AND (CodPersonal=0 OR CodPersonal=" + std::to_string(idProfesor) +
         " OR CodPersonal=" + std::to_string(idProfesorAsociado) + ")";
}

std::string SentenciaNotas(const DatosPasoUno& seleccion, const CondicionesNota& condiciones) {
  return std::string("SELECT IDNota, DescripcionCorta FROM Nota WHERE ") +
         (condiciones.sinExcepcionales ? "NotaExcepcional=0 AND " : "") +
         "(CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion=" +
         std::to_string(seleccion.seccion) +
         ")) AND (CodCurso=0 OR CodCurso=" + std::to_string(seleccion.curso) +
         ") AND (CodNumevaluacion=0 OR CodNumEvaluacion=" + std::to_string(seleccion.evaluacion) +
         ")" + condiciones.materiaYProfesor +
         " AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE " + condiciones.tipoNota +
         " AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE " +
         condiciones.clase +
         "CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE "
         "CodTipoEnsenanza=" +
         std::to_string(seleccion.tipo) + "))) ORDER BY DescripcionCorta";
}

void LlenarLista(Retivo& rejilla, int columna, const std::string& sentencia, const Form& form) {
  static const std::string kHolgura = std::string(7, ' ') + std::string(5, ' ');
  std::int32_t mayor = 0;
  auto recordset = Centro().Execute(sentencia);
  for (; !recordset.Eof(); recordset.MoveNext()) {
    const auto texto = recordset.Fields("DescripcionCorta").Text();
    if (gblnMostrarAnchoNotas) mayor = std::max(mayor, form.TextWidth(texto + kHolgura));
    rejilla.ListaAnadir(columna, texto, recordset.Fields("IDNota").Long());
  }
  if (mayor != 0) rejilla.ColWidth(columna, mayor);
}

}  // namespace quorvane
