// The grid of `frmNotaMateriaFinal`: what it shows of the subject, and the edit of its cells.
#include "grades/dialog/Pantalla.h"
#include "grades/final/PorMateriaFinal.h"
#include "grades/final/RejillaFinal.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/loading/Alumnos.h"
#include "platform/host/FrontEnd.h"

namespace quorvane {

const MateriaDeCombo& frmNotaMateriaFinal::EntradaActual() const {
  return ListaMaterias[static_cast<std::size_t>(cboMaterias.SelectedData()) - 1];
}

void frmNotaMateriaFinal::ConfigurarRejillaInicial() { ConfigurarRejillaDeMateria(rtvNotasAlumno); }

void frmNotaMateriaFinal::ConfigurarColumnas() { ConfigurarColumnasDeMateria(*this); }

void frmNotaMateriaFinal::cboMaterias_Click() {
  if (cboMaterias.ListIndex() == -1) return;
  auto& pantalla = Pantalla();
  pantalla.MousePointer(Pointer::Hourglass);
  ReconstruirRejilla(*this);
  pantalla.MousePointer(Pointer::Default);
}

void frmNotaMateriaFinal::RestaurarAnchosAlumno() {
  RestaurarAnchosFinales(rtvNotasAlumno, intAnchosAlumno, blnCargando);
}

void frmNotaMateriaFinal::rtvNotasAlumno_InicioEdicion() {
  RestaurarAnchosAlumno();
  if (blnEdicionActiva) LlenarCeldaDeMateria(*this);
}

void frmNotaMateriaFinal::rtvNotasAlumno_FinEdicion() {
  if (rtvNotasAlumno.Row() < 1 || !blnEdicionActiva) return;
  TomarCeldaDeMateria(rtvNotasAlumno, colAlumnos, EntradaActual());
}

void frmNotaMateriaFinal::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaMateriaFinal::rtvNotasAlumno_CambioAlto() {}

void frmNotaMateriaFinal::cboObservacion_Click() {
  if (cboObservacion.ListIndex() != -1) SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
}

void frmNotaMateriaFinal::chkPromocion_Click() {
  SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
}

}  // namespace quorvane
