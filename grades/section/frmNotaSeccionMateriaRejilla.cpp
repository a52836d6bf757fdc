// The grids of `frmNotaSeccionMateria`: what they show of the student, and the edit of their cells.
#include "frame/cConfiguracion.h"
#include "grades/CeldaNotas.h"
#include "grades/NotasOrdinarias.h"
#include "grades/Seleccion.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane {
namespace {

/// While the rows are written the grid is so wide that it neither scrolls nor clips.
constexpr std::int32_t kAnchoConstruccion = 17620;
constexpr std::int32_t kAnchoAlumno = 3000;

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaSeccionMateria1>::Get()); }

}  // namespace

const MateriaDeCombo& frmNotaSeccionMateria::EntradaActual() const {
  return aryMaterias[static_cast<std::size_t>(cboMaterias.SelectedData()) - 1];
}

void frmNotaSeccionMateria::ConfigurarRejillas() {
  ConfigurarRejilla(rtvNotasAlumno, {{2000, "Materia"},
                                     {1000, "Nota"},
                                     {2000, "Concepto"},
                                     {2000, "Procedimiento"},
                                     {2000, "Actitud"},
                                     {2000, "Observacion"}});
  ConfigurarRejilla(rtvNotasTutor, {{2000, "Alumno"}, {1000, "Nota"}, {2000, "Actitud"}});
}

void frmNotaSeccionMateria::ConfigurarColumnas() {
  rtvNotasAlumno.Clear();
  const auto paso = PasoUno();
  strColumna[0] = "Orden en Sección / Alumno";
  PrepararColumnas(rtvNotasAlumno, 7, kAnchoAlumno, strColumna);
  if (blnCargando) {
    LeerEscala(rtvNotasAlumno, paso.tipo, "Abreviatura", intAnchosAlumno, strColumna);
    GuardarAnchosAlumno(true);
  } else {
    RestaurarAnchosAlumno();
  }
  LlenarFilas(rtvNotasAlumno, colAlumnos, EntradaActual(), paso.blnRecuperar);
  rtvNotasAlumno.ColWidth(6, 0);
  // To nothing and back: the grid lays its columns out anew.
  rtvNotasAlumno.ColWidth(0, 0);
  rtvNotasAlumno.ColWidth(0, kAnchoAlumno);
  if (!blnCargando) RestaurarAnchosAlumno();
}

void frmNotaSeccionMateria::CargarNotasTutor() {
  LlenarPanelTutor({rtvNotasTutor, fraObservacion[0], lblNotaManual[1], cboObservacion}, tutor,
                   PasoUno(), blnCargando);
  // His observation would be selected, but a student has none.
  static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
}

void frmNotaSeccionMateria::cboMaterias_Click() {
  if (cboMaterias.ListIndex() == -1) return;
  auto& pantalla = Application::Instance().Screen();
  pantalla.MousePointer(Pointer::Hourglass);
  blnEdicionActiva = false;
  rtvNotasAlumno.Redraw(false);
  rtvNotasTutor.Redraw(false);
  rtvNotasAlumno.Visible(false);
  const auto ancho = rtvNotasAlumno.Width();
  rtvNotasAlumno.Width(kAnchoConstruccion);
  rtvNotasTutor.Visible(false);
  rtvNotasTutor.Width(kAnchoConstruccion);
  ConfigurarColumnas();
  rtvNotasAlumno.Visible(true);
  rtvNotasAlumno.Width(ancho);
  rtvNotasTutor.Width(ancho);
  rtvNotasTutor.Visible(true);
  if (rtvNotasAlumno.Rows() >= 2) rtvNotasAlumno.FixedRows(1);
  if (rtvNotasTutor.Rows() >= 2) rtvNotasTutor.FixedRows(1);
  rtvNotasAlumno.Redraw(true);
  rtvNotasTutor.Redraw(true);
  blnEdicionActiva = true;
  pantalla.MousePointer(Pointer::Default);
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
  if (blnEdicionActiva && blnTutor) {
    blnEdicionActiva = false;
    CargarNotasTutor();
    blnEdicionActiva = true;
  }
  RestaurarAnchosAlumno();
  if (!blnEdicionActiva) return;
  const auto columna = rtvNotasAlumno.Col();
  const auto fila = rtvNotasAlumno.Row();
  if (columna > rtvNotasAlumno.Cols() - 2 || rtvNotasAlumno.ColWidth(columna) == 0 || fila == 0 ||
      columna == 0)
    return;
  const auto& materia = MateriaDeFila(rtvNotasAlumno, colAlumnos, EntradaActual());
  if (materia.Fct) return;
  rtvNotasAlumno.ListaLimpiar(columna);
  rtvNotasAlumno.ListaAnadir(columna, " ", 0);
  CondicionesNota condiciones;
  condiciones.materiaYProfesor = DeMateriaYProfesores(
      std::to_string(materia.IDMatDetalle), materia.IDProfesor, materia.IDProfesorAsociado);
  condiciones.tipoNota = TipoNotaDeCelda(columna, false);
  LlenarLista(rtvNotasAlumno, columna, SentenciaNotas(PasoUno(), condiciones), *this);
}

void frmNotaSeccionMateria::rtvNotasAlumno_FinEdicion() {
  const auto columna = rtvNotasAlumno.Col();
  if (rtvNotasAlumno.ColWidth(columna) >= 1 && rtvNotasAlumno.Row() >= 1 && blnEdicionActiva &&
      EsColumnaNota(columna) && cboMaterias.ListIndex() != -1) {
    const auto indice = rtvNotasAlumno.ListaIndice();
    const auto idNota = indice == -1 ? 0 : rtvNotasAlumno.ListaDato(indice);
    AsignarNota(MateriaDeFila(rtvNotasAlumno, colAlumnos, EntradaActual()), columna, idNota,
                PasoUno().blnRecuperar);
  }
  GuardarAnchosAlumno(false);
}

void frmNotaSeccionMateria::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaSeccionMateria::rtvNotasTutor_InicioEdicion() {
  RestaurarAnchosTutor();
  if (blnEdicionActiva) LlenarCeldaTutor(rtvNotasTutor, PasoUno());
}

void frmNotaSeccionMateria::rtvNotasTutor_FinEdicion() {
  const auto columna = rtvNotasTutor.Col();
  if (rtvNotasTutor.Row() >= 1 && blnEdicionActiva && (columna == 1 || columna == 2)) {
    static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
    throw RuntimeError(ErrorNumber::MissingMember);  // a student has no `Valores`
  }
  GuardarAnchosTutor(false);
}

void frmNotaSeccionMateria::rtvNotasTutor_CambioAncho() { RestaurarAnchosTutor(); }

void frmNotaSeccionMateria::rtvNotasTutor_CambioAlto() {
  if (!blnCargando) intAltosTutor.resize(static_cast<std::size_t>(rtvNotasTutor.Rows()));
}

void frmNotaSeccionMateria::cboObservacion_Click() {
  if (cboObservacion.ListIndex() == -1) return;
  static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Observacion`
}

void frmNotaSeccionMateria::txtAusencias_Change() {
  static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Ausencias`
}

void frmNotaSeccionMateria::txtRetrasos_Change() {
  static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Retrasos`
}

}  // namespace quorvane
