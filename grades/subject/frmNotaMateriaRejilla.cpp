// The grids of `frmNotaMateria`: what they show of the subject, and the edit of their cells.
#include "frame/Conexiones.h"
#include "grades/NotasOrdinarias.h"
#include "grades/grid/CeldaNotas.h"
#include "grades/grid/RejillaNotas.h"
#include "grades/loading/Alumnos.h"
#include "grades/subject/RejillaPorMateria.h"
#include "grades/subject/frmNotaMateria.h"

namespace quorvane {

void frmNotaMateria::ConfigurarRejillas() {
  PonerColumnasIniciales(*this, {2000, "Materia"}, {2000, "Alumno"});
}

void frmNotaMateria::ConfigurarColumnas() { LlenarRejilla(*this); }

void frmNotaMateria::CargarNotasTutor() { LlenarTutor(*this); }

void frmNotaMateria::cboMaterias_Click() {
  if (cboMaterias.ListIndex() == -1) return;
  MostrarMateria(*this);
}

void frmNotaMateria::GuardarAnchosAlumno(bool siempre) {
  intAnchosAlumno.Guardar(rtvNotasAlumno, blnCargando, siempre);
}

void frmNotaMateria::RestaurarAnchosAlumno() {
  intAnchosAlumno.Restaurar(rtvNotasAlumno, blnCargando);
}

void frmNotaMateria::GuardarAnchosTutor(bool siempre) {
  tutor.intAnchosTutor.Guardar(rtvNotasTutor, blnCargando, siempre);
}

void frmNotaMateria::RestaurarAnchosTutor() {
  tutor.intAnchosTutor.Restaurar(rtvNotasTutor, blnCargando);
}

void frmNotaMateria::rtvNotasAlumno_InicioEdicion() {
  LlenarTutorAlEditar(*this);
  RestaurarAnchosAlumno();
  if (blnEdicionActiva && CeldaConLista(*this, kOcultasPorMateria))
    OfrecerNotas(*this, MateriaDeFila(rtvNotasAlumno, colAlumnos, EntradaActual(*this)));
}

void frmNotaMateria::rtvNotasAlumno_FinEdicion() {
  if (NotaEditada(*this)) {
    const auto idNota = DatoElegido(rtvNotasAlumno);
    AsignarNota(MateriaDeFila(rtvNotasAlumno, colAlumnos, EntradaActual(*this)),
                rtvNotasAlumno.Col(), idNota, PasoUno().blnRecuperar);
  }
  GuardarAnchosAlumno(false);
}

void frmNotaMateria::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaMateria::rtvNotasTutor_InicioEdicion() {
  RestaurarAnchosTutor();
  if (blnEdicionActiva) LlenarCeldaTutor(Centro(), rtvNotasTutor, PasoUno());
}

void frmNotaMateria::rtvNotasTutor_FinEdicion() {
  if (NotaTutorEditada(*this))
    SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));  // has no `Valores`
  GuardarAnchosTutor(false);
}

void frmNotaMateria::rtvNotasTutor_CambioAncho() { RestaurarAnchosTutor(); }

void frmNotaMateria::rtvNotasTutor_CambioAlto() { AnotarAltosTutor(*this); }

void frmNotaMateria::cboObservacion_Click() {
  if (cboObservacion.ListIndex() != -1)
    SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));  // nor `Observacion`
}

void frmNotaMateria::txtAusencias_Change() {
  SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));  // nor `Ausencias`
}

void frmNotaMateria::txtRetrasos_Change() {
  SinMiembro(AlumnoDeFila(rtvNotasAlumno, colAlumnos));  // nor `Retrasos`
}

}  // namespace quorvane
