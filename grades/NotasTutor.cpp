#include "grades/NotasTutor.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "grades/CeldaNotas.h"
#include "grades/Escala.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Connection.h"

namespace quorvane {
namespace {

constexpr std::int32_t kClaseObservacion = 5;

Recordset Execute(const std::string& statement) { return Centro().Execute(statement); }

std::string SistemasDe(std::int32_t tipo) {
  return "CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE "
         "CodTipoEnsenanza=" +
         std::to_string(tipo) + ")";
}

void ConfigurarRejilla(Retivo& rejilla, EstadoTutor& estado, std::int32_t tipo) {
  rejilla.Clear();
  const auto valores = Execute(
      "SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=3 AND " + SistemasDe(tipo));
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

std::string SentenciaObservaciones(const Seleccion& seleccion, bool sinExcepcionales) {
  CondicionesNota condiciones;
  condiciones.sinExcepcionales = sinExcepcionales;
  condiciones.tipoNota = "Orden=1 AND Materia=0 AND Observacion=0 AND Evaluacion=" +
                         cConfiguracion::Instancia().Verdadero();
  return SentenciaNotas(seleccion, condiciones);
}

void LlenarObservaciones(ComboBox& cboObservacion, const std::string& sentencia) {
  cboObservacion.Clear();
  auto notas = Execute(sentencia);
  cboObservacion.AddItem(" ", 0);
  for (; !notas.Eof(); notas.MoveNext())
    cboObservacion.AddItem(notas.Fields("DescripcionCorta").Text(), notas.Fields("IDNota").Long());
}

void LlenarPanelTutor(const PanelTutor& panel, EstadoTutor& estado, const Seleccion& seleccion,
                      bool cargando) {
  ConfigurarRejilla(panel.rtvNotasTutor, estado, seleccion.tipo);
  panel.cboObservacion.Clear();
  panel.fraObservacion.Visible(false);
  auto tipos = Execute(
      "SELECT IDTipoNota, Nombre, Orden FROM TipoNota WHERE Abreviatura=0 AND CodTipoMateria IN "
      "(SELECT IDTipoMateria FROM TipoMateria WHERE " +
      SistemasDe(seleccion.tipo) + ") ORDER BY Orden");
  if (cargando) PrepararAnchos(estado.intAnchosTutor, tipos);
  for (; !tipos.Eof(); tipos.MoveNext()) {
    const auto nombre = tipos.Fields("Nombre").Text();
    const auto clase = Execute(
        "SELECT CodEspecificartipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT "
        "CodTipoMateria FROM TipoNota WHERE IDTipoNota=" +
        std::to_string(tipos.Fields("IDTipoNota").Long()) + ")");
    if (clase.Fields("CodEspecificartipoMateria").Long() == kClaseObservacion) {
      panel.fraObservacion.Visible(true);
      panel.lblObservacion.Caption(nombre);
      LlenarObservaciones(panel.cboObservacion, SentenciaObservaciones(seleccion, false));
    } else {
      PonerColumna(panel.rtvNotasTutor, estado, tipos.Fields("Orden").Long(), nombre);
    }
  }
  if (cargando)
    estado.intAnchosTutor.Guardar(panel.rtvNotasTutor, cargando, true);
  else
    estado.intAnchosTutor.Restaurar(panel.rtvNotasTutor, cargando);
}

void LlenarCeldaTutor(Retivo& rtvNotasTutor, const Seleccion& seleccion) {
  const auto columna = rtvNotasTutor.Col();
  const auto ultima = rtvNotasTutor.Cols() - 1;
  if (columna == ultima || rtvNotasTutor.Row() == 0 || columna == 0) return;
  rtvNotasTutor.ListaLimpiar(columna);
  rtvNotasTutor.ListaAnadir(columna, " ", 0);
  const auto& clave = rtvNotasTutor.TextMatrix(rtvNotasTutor.Row(), ultima);
  CondicionesNota condiciones;
  condiciones.materiaYProfesor =
      " AND (CodMateria=0 OR CodMateria=" + clave + ") AND (CodPersonal=0)";
  condiciones.tipoNota = "Orden=" + std::to_string(columna);
  condiciones.clase = "CodEspecificarTipoMateria=3 AND ";
  auto notas = Execute(SentenciaNotas(seleccion, condiciones));
  for (; !notas.Eof(); notas.MoveNext())
    rtvNotasTutor.ListaAnadir(columna, notas.Fields("DescripcionCorta").Text(),
                              notas.Fields("IDNota").Long());
}

}  // namespace quorvane
