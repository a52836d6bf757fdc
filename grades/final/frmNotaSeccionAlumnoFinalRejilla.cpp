// The grid of `frmNotaSeccionAlumnoFinal`: what it shows of the student, and the edit of its cells.
#include "frame/Conexiones.h"
#include "grades/final/ObservacionFinal.h"
#include "grades/final/PorAlumnoFinal.h"
#include "grades/final/RejillaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/grid/NotasTutor.h"
#include "grades/loading/Alumnos.h"

namespace quorvane {

cAlumno& frmNotaSeccionAlumnoFinal::AlumnoActual() const {
  return *colAlumnos[Key(cboAlumnos.SelectedData())];
}

void frmNotaSeccionAlumnoFinal::ConfigurarRejillaInicial() {
  ConfigurarRejillaDeAlumno(rtvNotasAlumno);
}

void frmNotaSeccionAlumnoFinal::ConfigurarColumnas() {
  const auto tipo = PasoUno().tipo;
  // Only on the first load the kinds of grade give their names to the columns.
  strColumna = {TituloMaterias(Centro(), tipo),
                "Nota",
                "Concepto",
                "Procedimiento",
                "Actitud",
                "Observacion"};
  ConfigurarColumnasDeAlumno(*this, tipo);
}

void frmNotaSeccionAlumnoFinal::cboAlumnos_Click() {
  if (cboAlumnos.ListIndex() == -1) return;
  ReconstruirRejilla(*this);
  RehacerObservacion();
  // All of it once more, behind the observation.
  rtvNotasAlumno.Redraw(true);
  SeleccionarPrimeraFila(rtvNotasAlumno);
  blnEdicionActiva = true;
}

void frmNotaSeccionAlumnoFinal::RehacerObservacion() {
  if (bytPromocion == 1) SinMiembro(AlumnoActual());
  cboObservacion.Clear();
  fraObservacion[0].Visible(false);
  const auto paso = PasoUno();
  for (Observaciones tipos(Centro(), paso.tipo); tipos.Siguiente();)
    LlenarObservaciones(Centro(), cboObservacion, SentenciaObservaciones(paso, false));
}

void frmNotaSeccionAlumnoFinal::RestaurarAnchosAlumno() {
  RestaurarAnchosFinales(rtvNotasAlumno, intAnchosAlumno, blnCargando);
}

void frmNotaSeccionAlumnoFinal::rtvNotasAlumno_InicioEdicion() { EmpezarEdicionDeAlumno(*this); }

void frmNotaSeccionAlumnoFinal::rtvNotasAlumno_FinEdicion() {
  if (rtvNotasAlumno.Row() < 1 || !blnEdicionActiva) return;
  TomarCeldaDeAlumno(rtvNotasAlumno, AlumnoActual().colMateria);
}

void frmNotaSeccionAlumnoFinal::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaSeccionAlumnoFinal::cboObservacion_Click() {
  if (cboObservacion.ListIndex() != -1) SinMiembro(AlumnoActual());
}

void frmNotaSeccionAlumnoFinal::chkPromocion_Click() { SinMiembro(AlumnoActual()); }

}  // namespace quorvane
