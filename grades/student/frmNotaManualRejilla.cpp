// The grids of `frmNotaManual`: what they show of the student, and the edit of their cells.
#include "frame/Conexiones.h"
#include "grades/NotasOrdinarias.h"
#include "grades/grid/CeldaNotas.h"
#include "grades/grid/RejillaNotas.h"
#include "grades/loading/Alumnos.h"
#include "grades/student/RejillaPorAlumno.h"
#include "grades/student/frmNotaManual.h"

namespace quorvane {

void frmNotaManual::ConfigurarRejillas() {
  PonerColumnasIniciales(*this, {2000, "Materia"}, {2000, "Valores/Actitudes"});
}

void frmNotaManual::ConfigurarColumnas() {
  rtvNotasAlumno.Clear();
  const auto paso = PasoUno();
  strColumna[0] = TituloMaterias(Centro(), paso.tipo);
  PrepararColumnas(rtvNotasAlumno, kColumnasPorAlumno, kAnchoMateria, strColumna);
  AnchosDeEscala(*this, paso.tipo);
  LlenarFilas(Centro(), rtvNotasAlumno, AlumnoActual(*this), paso.blnRecuperar);
  RecolocarColumnas(*this, kAnchoMateria);
}

void frmNotaManual::CargarNotasTutor() { LlenarTutor(*this); }

void frmNotaManual::cboAlumnos_Click() {
  if (cboAlumnos.ListIndex() == -1) return;
  const auto ancho = OcultarRejillas(*this);
  ConfigurarColumnas();
  MostrarRejillaAlumno(*this, ancho);
  CargarNotasTutor();
  MostrarRejillaTutor(*this, ancho);
}

void frmNotaManual::GuardarAnchosAlumno(bool siempre) {
  intAnchosAlumno.Guardar(rtvNotasAlumno, blnCargando, siempre);
}

void frmNotaManual::RestaurarAnchosAlumno() {
  intAnchosAlumno.Restaurar(rtvNotasAlumno, blnCargando);
}

void frmNotaManual::GuardarAnchosTutor(bool siempre) {
  tutor.intAnchosTutor.Guardar(rtvNotasTutor, blnCargando, siempre);
}

void frmNotaManual::RestaurarAnchosTutor() {
  tutor.intAnchosTutor.Restaurar(rtvNotasTutor, blnCargando);
}

void frmNotaManual::rtvNotasAlumno_InicioEdicion() {
  RestaurarAnchosAlumno();
  if (blnEdicionActiva && CeldaConLista(*this, kOcultasPorAlumno))
    OfrecerNotas(*this, MateriaDeFila(rtvNotasAlumno, AlumnoActual(*this)));
}

void frmNotaManual::rtvNotasAlumno_FinEdicion() {
  if (NotaEditada(*this)) {
    const auto idNota = DatoElegido(rtvNotasAlumno);
    AsignarNota(MateriaDeFila(rtvNotasAlumno, AlumnoActual(*this)), rtvNotasAlumno.Col(), idNota,
                PasoUno().blnRecuperar);
  }
  GuardarAnchosAlumno(false);
}

void frmNotaManual::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaManual::rtvNotasTutor_InicioEdicion() {
  RestaurarAnchosTutor();
  if (blnEdicionActiva) LlenarCeldaTutor(Centro(), rtvNotasTutor, PasoUno());
}

void frmNotaManual::rtvNotasTutor_FinEdicion() {
  if (NotaTutorEditada(*this)) SinMiembro(AlumnoActual(*this));  // has no `Valores`
  GuardarAnchosTutor(false);
}

void frmNotaManual::rtvNotasTutor_CambioAncho() { RestaurarAnchosTutor(); }

void frmNotaManual::cboObservacion_Click() {
  if (cboObservacion.ListIndex() != -1) SinMiembro(AlumnoActual(*this));  // nor `Observacion`
}

void frmNotaManual::txtAusencias_Change() {
  SinMiembro(AlumnoActual(*this));  // nor `Ausencias`
}

void frmNotaManual::txtRetrasos_Change() {
  SinMiembro(AlumnoActual(*this));  // nor `Retrasos`
}

}  // namespace quorvane
