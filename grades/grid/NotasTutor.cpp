#include "grades/grid/NotasTutor.h"

#include "frame/ClaseMateria.h"
#include "frame/cConfiguracion.h"
#include "grades/grid/Escala.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {
namespace {

void ConfigurarRejilla(Connection& centro, Retivo& rejilla, EstadoTutor& estado,
                       std::int32_t tipo) {
  rejilla.Clear();
  const auto valores = centro.Execute(Sql(
      "SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=3 AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})",
      tipo));
  if (!valores.Eof()) estado.strTutorColumna[0] = valores.Fields("nombre").Text();
  rejilla.Cols(4);
  rejilla.Rows(1);
  for (int columna = 0; columna < 4; ++columna)
    rejilla.ColWidth(columna, columna == 0 ? kAnchoNota : 0);
  for (int columna = 0; columna < 3; ++columna)
    rejilla.TextMatrix(0, columna, estado.strTutorColumna[static_cast<std::size_t>(columna)]);
}

void PrepararAnchos(Anchos& anchos, Recordset& tipos) {
  if (tipos.Eof()) {
    anchos = Anchos();
    anchos.Crecer(0);
    return;
  }
  for (; !tipos.Eof(); tipos.MoveNext()) anchos.Crecer(tipos.Fields("Orden").Long());
  tipos.MoveFirst();
}

void PonerColumna(Retivo& rejilla, EstadoTutor& estado, std::int32_t orden,
                  const std::string& nombre) {
  rejilla.ColWidth(orden, kAnchoNota);
  rejilla.TextMatrix(0, orden, nombre);
  if (orden == 1 || orden == 2) estado.strTutorColumna[static_cast<std::size_t>(orden)] = nombre;
}

}  // namespace

std::string SentenciaObservaciones(const DatosPasoUno& seleccion, bool sinExcepcionales) {
  const auto verdadero = cConfiguracion::Instancia().NumeroVerdadero();
  if (sinExcepcionales)
    return Sql(
        "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden=1 AND Materia=0 AND Observacion=0 AND Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta",
        seleccion.seccion, seleccion.curso, seleccion.evaluacion, verdadero, seleccion.tipo);
  return Sql(
      "SELECT IDNota, DescripcionCorta FROM Nota WHERE (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden=1 AND Materia=0 AND Observacion=0 AND Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta",
      seleccion.seccion, seleccion.curso, seleccion.evaluacion, verdadero, seleccion.tipo);
}

void LlenarObservaciones(Connection& centro, ComboBox& cboObservacion,
                         const std::string& sentencia) {
  cboObservacion.Clear();
  auto notas = centro.Execute(sentencia);
  cboObservacion.AddItem(" ", 0);
  for (; !notas.Eof(); notas.MoveNext())
    cboObservacion.AddItem(notas.Fields("DescripcionCorta").Text(), notas.Fields("IDNota").Long());
}

void LlenarPanelTutor(Connection& centro, const PanelTutor& panel, EstadoTutor& estado,
                      const DatosPasoUno& seleccion, bool cargando) {
  ConfigurarRejilla(centro, panel.rtvNotasTutor, estado, seleccion.tipo);
  panel.cboObservacion.Clear();
  panel.fraObservacion.Visible(false);
  auto tipos = centro.Execute(Sql(
      "SELECT IDTipoNota, Nombre, Orden FROM TipoNota WHERE Abreviatura=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})) ORDER BY Orden",
      seleccion.tipo));
  if (cargando) PrepararAnchos(estado.intAnchosTutor, tipos);
  for (; !tipos.Eof(); tipos.MoveNext()) {
    const auto nombre = tipos.Fields("Nombre").Text();
    const auto clase = centro.Execute(Sql(
        "SELECT CodEspecificartipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT CodTipoMateria FROM TipoNota WHERE IDTipoNota={})",
        tipos.Fields("IDTipoNota").Long()));
    if (clase.Fields("CodEspecificartipoMateria").Long() == ClaseMateria::kObservacion) {
      panel.fraObservacion.Visible(true);
      panel.lblObservacion.Caption(nombre);
      LlenarObservaciones(centro, panel.cboObservacion, SentenciaObservaciones(seleccion, false));
    } else {
      PonerColumna(panel.rtvNotasTutor, estado, tipos.Fields("Orden").Long(), nombre);
    }
  }
  if (cargando)
    estado.intAnchosTutor.Guardar(panel.rtvNotasTutor, cargando, true);
  else
    estado.intAnchosTutor.Restaurar(panel.rtvNotasTutor, cargando);
}

void LlenarCeldaTutor(Connection& centro, Retivo& rtvNotasTutor, const DatosPasoUno& seleccion) {
  const auto columna = rtvNotasTutor.Col();
  const auto ultima = rtvNotasTutor.Cols() - 1;
  if (columna == ultima || rtvNotasTutor.Row() == 0 || columna == 0) return;
  rtvNotasTutor.ListaLimpiar(columna);
  rtvNotasTutor.ListaAnadir(columna, " ", 0);
  const auto& clave = rtvNotasTutor.TextMatrix(rtvNotasTutor.Row(), ultima);
  auto notas = centro.Execute(
      Sql("SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria=",
          seleccion.seccion, seleccion.curso, seleccion.evaluacion) +
      clave +
      Sql(") AND (CodPersonal=0) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria=3 AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta",
          columna, seleccion.tipo));
  for (; !notas.Eof(); notas.MoveNext())
    rtvNotasTutor.ListaAnadir(columna, notas.Fields("DescripcionCorta").Text(),
                              notas.Fields("IDNota").Long());
}

}  // namespace quorvane
