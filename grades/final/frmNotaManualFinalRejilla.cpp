// The grid of `frmNotaManualFinal`: what it shows of the student, and the edit of its cells.
#include "frame/Conexiones.h"
#include "grades/final/PorAlumnoFinal.h"
#include "grades/final/RejillaFinal.h"
#include "grades/final/frmNotaManualFinal.h"
#include "grades/loading/Alumnos.h"

namespace quorvane {

cAlumno& frmNotaManualFinal::AlumnoActual() const {
  return *colAlumnos[Key(cboAlumnos.SelectedData())];
}

void frmNotaManualFinal::ConfigurarRejillaInicial() { ConfigurarRejillaDeAlumno(rtvNotasAlumno); }

void frmNotaManualFinal::ConfigurarColumnas() {
  const auto tipo = PasoUno().tipo;
  strColumna[0] = TituloMaterias(Centro(), tipo);
  ConfigurarColumnasDeAlumno(*this, tipo);
}

void frmNotaManualFinal::cboAlumnos_Click() {
  if (cboAlumnos.ListIndex() == -1) return;
  ReconstruirRejilla(*this);
}

void frmNotaManualFinal::RestaurarAnchosAlumno() {
  RestaurarAnchosFinales(rtvNotasAlumno, intAnchosAlumno, blnCargando);
}

void frmNotaManualFinal::rtvNotasAlumno_InicioEdicion() { EmpezarEdicionDeAlumno(*this); }

void frmNotaManualFinal::rtvNotasAlumno_FinEdicion() {
  if (rtvNotasAlumno.Row() < 1 || !blnEdicionActiva) return;
  TomarCeldaDeAlumno(rtvNotasAlumno, AlumnoActual().colMateria);
}

void frmNotaManualFinal::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaManualFinal::cboObservacion_Click() {
  if (cboObservacion.ListIndex() != -1) SinMiembro(AlumnoActual());
}

void frmNotaManualFinal::chkPromocion_Click() { SinMiembro(AlumnoActual()); }

}  // namespace quorvane
