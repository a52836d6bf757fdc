// The grids of `frmNotaSeccionAlumno`: what they show of the student, and the edit of their cells.
#include "frame/Conexiones.h"
#include "grades/NotasOrdinarias.h"
#include "grades/grid/CeldaNotas.h"
#include "grades/grid/RejillaNotas.h"
#include "grades/loading/Alumnos.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "grades/student/RejillaPorAlumno.h"

namespace quorvane {

void frmNotaSeccionAlumno::ConfigurarRejillas() {
  constexpr std::int32_t kAnchoSinTitulo = 960;  // headed when the first student is shown
  PonerColumnasIniciales(*this, {kAnchoSinTitulo, ""}, {kAnchoSinTitulo, ""});
}

void frmNotaSeccionAlumno::ConfigurarColumnas() {
  rtvNotasAlumno.Clear();
  const auto paso = PasoUno();
  strColumna[0] = TituloMaterias(Centro(), paso.tipo);
  // Not the kept headings: where the scale isn't read anew, these stand.
  const Titulos titulos{strColumna[0],   "Nota",    "Concepto",
                        "Procedimiento", "Actitud", "Observacion"};
  PrepararColumnas(rtvNotasAlumno, kColumnasPorAlumno, kAnchoMateria, titulos);
  AnchosDeEscala(*this, paso.tipo);
  LlenarFilas(Centro(), rtvNotasAlumno, AlumnoActual(*this), paso.blnRecuperar);
  RecolocarColumnas(*this, kAnchoMateria);
}

void frmNotaSeccionAlumno::CargarNotasTutor() { LlenarTutor(*this); }

void frmNotaSeccionAlumno::cboAlumnos_Click() {
  if (cboAlumnos.ListIndex() == -1) return;
  const auto ancho = OcultarRejillas(*this);
  ConfigurarColumnas();
  MostrarRejillaAlumno(*this, ancho);
  CargarNotasTutor();
  MostrarRejillaTutor(*this, ancho);
  rtvNotasAlumno_InicioEdicion();
}

void frmNotaSeccionAlumno::GuardarAnchosAlumno(bool siempre) {
  intAnchosAlumno.Guardar(rtvNotasAlumno, blnCargando, siempre);
}

void frmNotaSeccionAlumno::RestaurarAnchosAlumno() {
  intAnchosAlumno.Restaurar(rtvNotasAlumno, blnCargando);
}

void frmNotaSeccionAlumno::GuardarAnchosTutor(bool siempre) {
  tutor.intAnchosTutor.Guardar(rtvNotasTutor, blnCargando, siempre);
}

void frmNotaSeccionAlumno::RestaurarAnchosTutor() {
  tutor.intAnchosTutor.Restaurar(rtvNotasTutor, blnCargando);
}

void frmNotaSeccionAlumno::rtvNotasAlumno_InicioEdicion() {
  RestaurarAnchosAlumno();
  if (blnEdicionActiva && CeldaConLista(*this, kOcultasPorAlumno))
    OfrecerNotas(*this, MateriaDeFila(rtvNotasAlumno, AlumnoActual(*this)));
}

void frmNotaSeccionAlumno::rtvNotasAlumno_FinEdicion() {
  if (NotaEditada(*this)) {
    const auto idNota = DatoElegido(rtvNotasAlumno);
    AsignarNota(MateriaDeFila(rtvNotasAlumno, AlumnoActual(*this)), rtvNotasAlumno.Col(), idNota,
                PasoUno().blnRecuperar);
  }
  GuardarAnchosAlumno(false);
}

void frmNotaSeccionAlumno::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaSeccionAlumno::rtvNotasTutor_InicioEdicion() {
  RestaurarAnchosTutor();
  if (blnEdicionActiva) LlenarCeldaTutor(Centro(), rtvNotasTutor, PasoUno());
}

void frmNotaSeccionAlumno::rtvNotasTutor_FinEdicion() {
  if (NotaTutorEditada(*this)) SinMiembro(AlumnoActual(*this));  // has no `Valores`
  GuardarAnchosTutor(false);
}

void frmNotaSeccionAlumno::rtvNotasTutor_CambioAncho() { RestaurarAnchosTutor(); }

void frmNotaSeccionAlumno::cboObservacion_Click() {
  if (cboObservacion.ListIndex() != -1) SinMiembro(AlumnoActual(*this));  // nor `Observacion`
}

void frmNotaSeccionAlumno::txtAusencias_Change() {
  SinMiembro(AlumnoActual(*this));  // nor `Ausencias`
}

void frmNotaSeccionAlumno::txtRetrasos_Change() {
  SinMiembro(AlumnoActual(*this));  // nor `Retrasos`
}

}  // namespace quorvane
