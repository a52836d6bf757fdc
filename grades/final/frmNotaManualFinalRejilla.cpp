// The grid of `frmNotaManualFinal`: what it shows of the student, and the edit of its cells.
#include "grades/final/PorAlumnoFinal.h"
#include "grades/final/RejillaFinal.h"
#include "grades/final/frmNotaManualFinal.h"
#include "platform/FormInstance.h"
#include "platform/RuntimeError.h"
#include "selection/frmNotaManual1.h"

namespace quorvane {
namespace {

/// While the rows are written the grid is so high that it neither scrolls nor clips.
constexpr std::int32_t kAltoConstruccion = 17670;
constexpr int kColumnas = 9;

DatosPasoUno PasoUno() { return DatosPasoUnoDe(FormInstance<frmNotaManual1>::Get()); }

}  // namespace

cAlumno& frmNotaManualFinal::AlumnoActual() const {
  return *colAlumnos[Key(cboAlumnos.SelectedData())];
}

void frmNotaManualFinal::ConfigurarRejillaInicial() {
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

void frmNotaManualFinal::ConfigurarColumnas() {
  const auto tipo = PasoUno().tipo;
  strColumna[0] = TituloMaterias(tipo);
  blnEdicionActiva = false;
  PrepararRejillaFinal(rtvNotasAlumno, {kColumnas, kAnchoNota, blnMedidas, blnCargando}, tipo,
                       intAnchosAlumno, strColumna);
  LlenarFilasDeAlumno(rtvNotasAlumno, AlumnoActual().colMateria);
  rtvNotasAlumno.ColWidth(kColumnas - 2, 0);
  rtvNotasAlumno.ColWidth(kColumnas - 1, 0);
  blnEdicionActiva = true;
  if (!blnCargando) RestaurarAnchosAlumno();
}

void frmNotaManualFinal::cboAlumnos_Click() {
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
}

void frmNotaManualFinal::RestaurarAnchosAlumno() {
  RestaurarAnchosFinales(rtvNotasAlumno, intAnchosAlumno, blnCargando);
}

void frmNotaManualFinal::rtvNotasAlumno_InicioEdicion() {
  RestaurarAnchosAlumno();
  if (!blnEdicionActiva) return;
  const auto columna = rtvNotasAlumno.Col();
  if (columna == 0 || rtvNotasAlumno.Row() == 0 || columna > rtvNotasAlumno.Cols() - 3) return;
  LlenarCeldaDeAlumno(rtvNotasAlumno, AlumnoActual().colMateria, PasoUno(), *this);
}

void frmNotaManualFinal::rtvNotasAlumno_FinEdicion() {
  if (rtvNotasAlumno.Row() < 1 || !blnEdicionActiva) return;
  TomarCeldaDeAlumno(rtvNotasAlumno, AlumnoActual().colMateria);
}

void frmNotaManualFinal::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaManualFinal::cboObservacion_Click() {
  if (cboObservacion.ListIndex() == -1) return;
  static_cast<void>(AlumnoActual());
  throw RuntimeError(ErrorNumber::MissingMember);  // a student has no `Observacion`
}

void frmNotaManualFinal::chkPromocion_Click() {
  static_cast<void>(AlumnoActual());
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Promocion`
}

}  // namespace quorvane
