#include "selection/ListasPasoUno.h"

#include "frame/cConfiguracion.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

bool SinLimites() { return cConfiguracion::Instancia().intIDPerfil == 0; }

/// `clave` in lower case.
std::string TextoEntrada(const std::string& clave, const Recordset& fila) {
  if (clave == "idtipoensenanza" || clave == "idalumno") return fila.Fields("Nombre").Text();
  if (clave == "idcurso" || clave == "idseccion" || clave == "idnumevaluacion")
    return fila.Fields("Descripcion").Text();
  // The subject, and in brackets the course in which it was taught.
  if (clave == "idmateriadetalles")
    return fila.Fields("Nombre").Text() + " (" + fila.Fields("Descripcion").Text() + ")";
  return {};
}

}  // namespace

void LlenarCombo(const std::string& clave, ComboBox& lista, Recordset filas) {
  lista.Clear();
  if (filas.Eof()) {
    lista.Enabled(false);
    return;
  }
  lista.Enabled(true);
  const auto nombre = AsciiLower(clave);
  for (filas.MoveFirst(); !filas.Eof(); filas.MoveNext())
    lista.AddItem(TextoEntrada(nombre, filas), filas.Fields(clave).Long());
}

void LlenarTipos(Connection& centro, ComboBox& lista, std::int16_t idPersonal) {
  const auto visibles =
      SinLimites()
          ? Sql("SELECT * FROM TipoEnsenanza WHERE IDTipoEnsenanza IN (SELECT codTipoEnsenanza FROM Centro_TipoEnsenanza) AND IDTipoEnsenanza NOT IN (1,2) ORDER BY Orden")
          : Sql("SELECT * FROM TipoEnsenanza WHERE IDTipoEnsenanza IN (SELECT codTipoEnsenanza FROM Centro_TipoEnsenanza) AND IDTipoEnsenanza IN (SELECT CodTipoEnsenanza FROM SistemaCalificacion WHERE IDSistemaCalificacion IN (SELECT CodSistemaCalificacion FROM Modelo WHERE IDModelo IN (SELECT CodModelo FROM Seccion WHERE CodTutor= {} OR IDSeccion IN (SELECT CodSeccion FROM AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte ON AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN (SELECT codmatdet FROM profesor_pte WHERE CodProfesor={}))))) ORDER BY Orden",
                idPersonal, idPersonal);
  LlenarCombo("IDTipoEnsenanza", lista, centro.Execute(visibles));
}

void LlenarEvaluacionesOrdinarias(Connection& centro, ComboBox& lista) {
  LlenarCombo(
      "IDNumEvaluacion", lista,
      centro.Execute(Sql(
          "SELECT Descripcion, IDNumEvaluacion FROM NumEvaluacion WHERE Final=0 ORDER BY NumEvaluacion.Final DESC, NumEvaluacion.Extraordinaria DESC, NumEvaluacion.Orden")));
}

bool AbrirLista(const ComboBox& elegida, ComboBox& siguiente, CommandButton& cmdSeguir) {
  if (elegida.ListIndex() == -1) {
    siguiente.Clear();
    siguiente.Enabled(false);
    return false;
  }
  cmdSeguir.Enabled(false);
  siguiente.Enabled(true);
  return true;
}

bool TieneRecuperaciones(Connection& centro, std::int32_t tipo) {
  return centro
      .Execute(
          Sql("SELECT Recuperaciones FROM SistemaCalificacion WHERE CodTipoEnsenanza={}", tipo))
      .Fields("recuperaciones")
      .Flag();
}

void LlenarCursos(Connection& centro, ComboBox& lista, std::int32_t tipo, std::int16_t idPersonal) {
  if (SinLimites())
    LlenarCombo(
        "IDCurso", lista,
        centro.Execute(
            Sql("SELECT Descripcion, IDCurso FROM Curso WHERE codTipoEnsenanza={} ORDER BY Orden",
                tipo)));
  else if (idPersonal > 0)
    LlenarCombo(
        "IDCurso", lista,
        centro.Execute(Sql(
            "SELECT Descripcion, IDCurso FROM Curso WHERE codTipoEnsenanza={} AND IDCurso IN (SELECT CodCurso FROM Seccion WHERE CodTutor= {} OR IDSeccion IN (SELECT CodSeccion FROM AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte ON AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN (SELECT codmatdet FROM profesor_pte WHERE CodProfesor={}))) ORDER BY Orden",
            tipo, idPersonal, idPersonal)));
}

void LlenarSecciones(Connection& centro, ComboBox& lista, std::int32_t curso,
                     std::int16_t idPersonal) {
  if (SinLimites())
    LlenarCombo(
        "IDSeccion", lista,
        centro.Execute(
            Sql("SELECT Descripcion, IDSeccion FROM Seccion WHERE codCurso={} ORDER BY Descripcion",
                curso)));
  else if (idPersonal > 0)
    LlenarCombo(
        "IDSeccion", lista,
        centro.Execute(Sql(
            "SELECT Descripcion, IDSeccion FROM Seccion WHERE codCurso={} AND (CodTutor= {} OR IDSeccion IN (SELECT CodSeccion FROM AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte ON AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN (SELECT codmatdet FROM profesor_pte WHERE CodProfesor={}))) ORDER BY Descripcion",
            curso, idPersonal, idPersonal)));
  lista.Enabled(lista.ListCount() > 0);
}

void LlenarEvaluaciones(Connection& centro, ComboBox& lista, std::int32_t seccion) {
  LlenarCombo(
      "IDNumEvaluacion", lista,
      centro.Execute(Sql(
          "SELECT IDNumEvaluacion, Descripcion, Final, Extraordinaria, NumEvaluacion.Orden FROM NumEvaluacion INNER JOIN (EvaluacionPte INNER JOIN (AlumnoPte_MatDet INNER JOIN Seccion_AlumnoPte ON Seccion_AlumnoPte.codalumno=AlumnoPte_MatDet.codAlumno) ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet) ON EvaluacionPte.codNumEvaluacion=NumEvaluacion.IDNumEvaluacion WHERE Seccion_AlumnoPte.codSeccion={} UNION SELECT IDNumEvaluacion, Descripcion, Final, Extraordinaria, NumEvaluacion.Orden FROM NumEvaluacion INNER JOIN (EvaluacionActaPte INNER JOIN (AlumnoPte_MatDet INNER JOIN Seccion_AlumnoPte ON Seccion_AlumnoPte.codalumno=AlumnoPte_MatDet.codAlumno) ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON EvaluacionActaPte.codNumEvaluacion=NumEvaluacion.IDNumEvaluacion WHERE Seccion_AlumnoPte.codSeccion={} ORDER BY NumEvaluacion.Final DESC, NumEvaluacion.Extraordinaria DESC, NumEvaluacion.Orden",
          seccion, seccion)));
}

void ElegirAnterior(ComboBox& lista) {
  if (lista.ListIndex() > 0) lista.ListIndex(lista.ListIndex() - 1);
}

void ElegirSiguiente(ComboBox& lista) {
  if (lista.ListIndex() < lista.ListCount() - 1) lista.ListIndex(lista.ListIndex() + 1);
}

}  // namespace quorvane
