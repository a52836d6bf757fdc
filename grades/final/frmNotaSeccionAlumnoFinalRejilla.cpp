// The grid of `frmNotaSeccionAlumnoFinal`: what it shows of the student, and the edit of its cells.
#include "grades/final/ObservacionFinal.h"
#include "grades/final/PorAlumnoFinal.h"
#include "grades/final/RejillaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/grid/NotasTutor.h"
#include "platform/FormInstance.h"
#include "platform/RuntimeError.h"
#include "selection/frmNotaSeccionAlumno1.h"

namespace quorvane {
namespace {

/// While the rows are written the grid is so high that it neither scrolls nor clips.
constexpr std::int32_t kAltoConstruccion = 17670;
constexpr int kColumnas = 9;

DatosPasoUno PasoUno() { return DatosPasoUnoDe(FormInstance<frmNotaSeccionAlumno1>::Get()); }

}  // namespace

cAlumno& frmNotaSeccionAlumnoFinal::AlumnoActual() const {
  return *colAlumnos[Key(cboAlumnos.SelectedData())];
}

void frmNotaSeccionAlumnoFinal::ConfigurarRejillaInicial() {
  ConfigurarRejilla(rtvNotasAlumno, {{2000, "Materia"},
                                     {1000, "Nota"},
                                     {2000, "Concepto"},
                                     {2000, "Procedimiento"},
                                     {2000, "Actitud"},
                                     {2000, "Observacion"},
                                     {2000, "Medidas Adoptadas"},
                                     {},
                                     {}});
}

void frmNotaSeccionAlumnoFinal::ConfigurarColumnas() {
  const auto tipo = PasoUno().tipo;
  // Only on the first load the kinds of grade give their names to the columns.
  strColumna = {TituloMaterias(tipo), "Nota",    "Concepto",
                "Procedimiento",      "Actitud", "Observacion"};
  blnEdicionActiva = false;
  PrepararRejillaFinal(rtvNotasAlumno, {kColumnas, kAnchoNota, blnMedidas, blnCargando}, tipo,
                       intAnchosAlumno, strColumna);
  LlenarFilasDeAlumno(rtvNotasAlumno, AlumnoActual().colMateria);
  rtvNotasAlumno.ColWidth(kColumnas - 2, 0);
  rtvNotasAlumno.ColWidth(kColumnas - 1, 0);
  blnEdicionActiva = true;
  if (!blnCargando) RestaurarAnchosAlumno();
}

void frmNotaSeccionAlumnoFinal::cboAlumnos_Click() {
  if (cboAlumnos.ListIndex() == -1) return;
  blnEdicionActiva = false;
  rtvNotasAlumno.Redraw(false);
  const auto alto = rtvNotasAlumno.Height();
  rtvNotasAlumno.Height(kAltoConstruccion);
  rtvNotasAlumno.Visible(false);
  ConfigurarColumnas();
  rtvNotasAlumno.Height(alto);
  SeleccionarPrimeraFila(rtvNotasAlumno);
  rtvNotasAlumno.Visible(true);
  rtvNotasAlumno.Redraw(true);
  blnEdicionActiva = true;
  RehacerObservacion();
  // All of it once more, behind the observation.
  rtvNotasAlumno.Redraw(true);
  SeleccionarPrimeraFila(rtvNotasAlumno);
  blnEdicionActiva = true;
}

void frmNotaSeccionAlumnoFinal::RehacerObservacion() {
  if (bytPromocion == 1) {
    static_cast<void>(AlumnoActual());
    throw RuntimeError(ErrorNumber::MissingMember);  // a student has no `Promocion`
  }
  cboObservacion.Clear();
  fraObservacion[0].Visible(false);
  const auto paso = PasoUno();
  RecorrerObservaciones(
      paso.tipo, [&] { LlenarObservaciones(cboObservacion, SentenciaObservaciones(paso, false)); });
}

void frmNotaSeccionAlumnoFinal::RestaurarAnchosAlumno() {
  RestaurarAnchosFinales(rtvNotasAlumno, intAnchosAlumno, blnCargando);
}

void frmNotaSeccionAlumnoFinal::rtvNotasAlumno_InicioEdicion() {
  RestaurarAnchosAlumno();
  if (!blnEdicionActiva) return;
  const auto columna = rtvNotasAlumno.Col();
  if (columna == 0 || rtvNotasAlumno.Row() == 0 || columna > rtvNotasAlumno.Cols() - 3) return;
  LlenarCeldaDeAlumno(rtvNotasAlumno, AlumnoActual().colMateria, PasoUno(), *this);
}

void frmNotaSeccionAlumnoFinal::rtvNotasAlumno_FinEdicion() {
  if (rtvNotasAlumno.Row() < 1 || !blnEdicionActiva) return;
  TomarCeldaDeAlumno(rtvNotasAlumno, AlumnoActual().colMateria);
}

void frmNotaSeccionAlumnoFinal::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaSeccionAlumnoFinal::cboObservacion_Click() {
  if (cboObservacion.ListIndex() == -1) return;
  static_cast<void>(AlumnoActual());
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Observacion`
}

void frmNotaSeccionAlumnoFinal::chkPromocion_Click() {
  static_cast<void>(AlumnoActual());
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Promocion`
}

}  // namespace quorvane
