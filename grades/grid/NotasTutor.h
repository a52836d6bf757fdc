#pragma once

#include <array>
#include <string>

#include "grades/grid/Anchos.h"
#include "grades/loading/DatosPasoUno.h"

namespace quorvane {

class ComboBox;
class Connection;
class Frame;
class Label;
class Retivo;
class cAlumno;

/// The pane of the tutor in the ordinary grade forms: a grid of the kinds of grade that aren't
/// abbreviations, and the list of his observation. The controls are the form's.
struct PanelTutor {
  Retivo& rtvNotasTutor;
  Frame& fraObservacion;
  Label& lblObservacion;
  ComboBox& cboObservacion;
};

/// What a form keeps of that pane: the headings `strTutorColumna0` to `strTutorColumna2`, which
/// last from one filling to the next, and the widths.
struct EstadoTutor {
  std::array<std::string, 3> strTutorColumna;
  Anchos intAnchosTutor;
};

/// `CargarNotasTutor`: heads the grid, which gets no rows, and fills the list of the observation.
/// `cargando` while the form is loading, when the widths are taken from the grid and not given
/// back. Error 381 for a kind of grade whose `Orden` is off the grid, 3021 for one whose kind of
/// subject is gone.
void LlenarPanelTutor(Connection& centro, const PanelTutor& panel, EstadoTutor& estado,
                      const DatosPasoUno& seleccion, bool cargando);

/// Lists for the cell of the tutor's grid that is about to be edited. Nothing happens in row 0, in
/// the first and in the last column.
void LlenarCeldaTutor(Connection& centro, Retivo& rtvNotasTutor, const DatosPasoUno& seleccion);

/// What the grades of the observation are read with; `sinExcepcionales` leaves exceptional ones
/// out.
std::string SentenciaObservaciones(const DatosPasoUno& seleccion, bool sinExcepcionales);

/// Fills the list of the observation: a blank entry, then the grades that the statement gives.
void LlenarObservaciones(Connection& centro, ComboBox& cboObservacion,
                         const std::string& sentencia);

}  // namespace quorvane
