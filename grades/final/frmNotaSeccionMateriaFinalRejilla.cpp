// The grid of `frmNotaSeccionMateriaFinal`: what it shows of the subject, and the edit of its
// cells.
#include "frame/Conexiones.h"
#include "grades/dialog/Pantalla.h"
#include "grades/final/ObservacionFinal.h"
#include "grades/final/PorMateriaFinal.h"
#include "grades/final/RejillaFinal.h"
#include "grades/final/frmNotaSeccionMateriaFinal.h"
#include "grades/grid/NotasTutor.h"
#include "grades/loading/Alumnos.h"
#include "platform/host/FrontEnd.h"

namespace quorvane {

const MateriaDeCombo& frmNotaSeccionMateriaFinal::EntradaActual() const {
  return ListaMaterias[static_cast<std::size_t>(cboMaterias.SelectedData()) - 1];
}

void frmNotaSeccionMateriaFinal::ConfigurarRejillaInicial() {
  ConfigurarRejillaDeMateria(rtvNotasAlumno);
}

void frmNotaSeccionMateriaFinal::ConfigurarColumnas() { ConfigurarColumnasDeMateria(*this); }

void frmNotaSeccionMateriaFinal::cboMaterias_Click() {
  if (cboMaterias.ListIndex() == -1) return;
  auto& pantalla = Pantalla();
  pantalla.MousePointer(Pointer::Hourglass);
  ReconstruirRejilla(*this);
  pantalla.MousePointer(Pointer::Default);
}

void frmNotaSeccionMateriaFinal::RehacerObservacion() {
  cboObservacion.Clear();
  fraObservacion[0].Visible(false);
  const auto paso = PasoUno();
  for (Observaciones tipos(Centro(), paso.tipo); tipos.Siguiente();) {
    lblNotaManual[1].Caption(ObservacionAlumno + " al alumno " +
                             rtvNotasAlumno.TextMatrix(rtvNotasAlumno.Row(), 0));
    lblNotaManual[1].Left(cboObservacion.Left());
    lblNotaManual[1].Top(cboObservacion.Top());
    LlenarObservaciones(Centro(), cboObservacion, SentenciaObservaciones(paso, true));
  }
}

void frmNotaSeccionMateriaFinal::RestaurarAnchosAlumno() {
  RestaurarAnchosFinales(rtvNotasAlumno, intAnchosAlumno, blnCargando);
}

void frmNotaSeccionMateriaFinal::rtvNotasAlumno_InicioEdicion() {
  RestaurarAnchosAlumno();
  if (!blnEdicionActiva) return;
  if (blnTutor) RehacerObservacion();
  LlenarCeldaDeMateria(*this);
  fraObservacion[0].Visible(false);
}

void frmNotaSeccionMateriaFinal::rtvNotasAlumno_FinEdicion() {
  if (rtvNotasAlumno.Row() < 1 || !blnEdicionActiva) return;
  TomarCeldaDeMateria(rtvNotasAlumno, colAlumnos, EntradaActual());
}

void frmNotaSeccionMateriaFinal::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaSeccionMateriaFinal::rtvNotasAlumno_CambioAlto() {}

void frmNotaSeccionMateriaFinal::cboObservacion_Click() {
  if (cboObservacion.ListIndex() != -1) SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
}

void frmNotaSeccionMateriaFinal::chkPromocion_Click() {
  SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
}

}  // namespace quorvane
