// The grids of `frmNotaSeccionMateria`: what they show of the subject, and the edit of their cells.
#include "frame/Conexiones.h"
#include "grades/NotasOrdinarias.h"
#include "grades/grid/CeldaNotas.h"
#include "grades/grid/RejillaNotas.h"
#include "grades/loading/Alumnos.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/subject/RejillaPorMateria.h"

namespace quorvane {

void frmNotaSeccionMateria::ConfigurarRejillas() {
  PonerColumnasIniciales(*this, {2000, "Materia"}, {2000, "Alumno"});
}

void frmNotaSeccionMateria::ConfigurarColumnas() { LlenarRejilla(*this); }

void frmNotaSeccionMateria::CargarNotasTutor() {
  LlenarTutor(*this);
  // His observation would be selected, but a student has none.
  static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
}

void frmNotaSeccionMateria::cboMaterias_Click() {
  if (cboMaterias.ListIndex() == -1) return;
  MostrarMateria(*this);
  rtvNotasAlumno_InicioEdicion();
}

void frmNotaSeccionMateria::GuardarAnchosAlumno(bool siempre) {
  intAnchosAlumno.Guardar(rtvNotasAlumno, blnCargando, siempre);
}

void frmNotaSeccionMateria::RestaurarAnchosAlumno() {
  intAnchosAlumno.Restaurar(rtvNotasAlumno, blnCargando);
}

void frmNotaSeccionMateria::GuardarAnchosTutor(bool siempre) {
  tutor.intAnchosTutor.Guardar(rtvNotasTutor, blnCargando, siempre);
}

void frmNotaSeccionMateria::RestaurarAnchosTutor() {
  tutor.intAnchosTutor.Restaurar(rtvNotasTutor, blnCargando);
}

void frmNotaSeccionMateria::rtvNotasAlumno_InicioEdicion() {
  LlenarTutorAlEditar(*this);
  RestaurarAnchosAlumno();
  if (blnEdicionActiva && CeldaConLista(*this, kOcultasPorMateria))
    OfrecerNotas(*this, MateriaDeFila(rtvNotasAlumno, colAlumnos, EntradaActual(*this)));
}

void frmNotaSeccionMateria::rtvNotasAlumno_FinEdicion() {
  if (NotaEditada(*this) && cboMaterias.ListIndex() != -1) {
    const auto idNota = DatoElegido(rtvNotasAlumno);
    AsignarNota(MateriaDeFila(rtvNotasAlumno, colAlumnos, EntradaActual(*this)),
                rtvNotasAlumno.Col(), idNota, PasoUno().blnRecuperar);
  }
  GuardarAnchosAlumno(false);
}

void frmNotaSeccionMateria::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaSeccionMateria::rtvNotasTutor_InicioEdicion() {
  RestaurarAnchosTutor();
  if (blnEdicionActiva) LlenarCeldaTutor(Centro(), rtvNotasTutor, PasoUno());
}

void frmNotaSeccionMateria::rtvNotasTutor_FinEdicion() {
  if (NotaTutorEditada(*this))
    SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));  // has no `Valores`
  GuardarAnchosTutor(false);
}

void frmNotaSeccionMateria::rtvNotasTutor_CambioAncho() { RestaurarAnchosTutor(); }

void frmNotaSeccionMateria::rtvNotasTutor_CambioAlto() { AnotarAltosTutor(*this); }

void frmNotaSeccionMateria::cboObservacion_Click() {
  if (cboObservacion.ListIndex() != -1)
    SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));  // nor `Observacion`
}

void frmNotaSeccionMateria::txtAusencias_Change() {
  SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));  // nor `Ausencias`
}

void frmNotaSeccionMateria::txtRetrasos_Change() {
  SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));  // nor `Retrasos`
}

}  // namespace quorvane
