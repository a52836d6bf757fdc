// The grids of `frmNotaSeccionAlumno`: what they show of the student, and the edit of their cells.
#include "frame/cConfiguracion.h"
#include "grades/CeldaNotas.h"
#include "grades/NotasOrdinarias.h"
#include "grades/Seleccion.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaSeccionAlumno1.h"

namespace quorvane {
namespace {

/// While the rows are written the grid is so wide that it neither scrolls nor clips.
constexpr std::int32_t kAnchoConstruccion = 17620;
/// Of the first columns, which this form doesn't head before the first student is shown.
constexpr std::int32_t kAnchoSinTitulo = 960;

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaSeccionAlumno1>::Get()); }

}  // namespace

cAlumno& frmNotaSeccionAlumno::AlumnoActual() const {
  return *colAlumnos[Key(cboAlumnos.SelectedData())];
}

cMateria& frmNotaSeccionAlumno::MateriaDeFila() const {
  const auto fila = rtvNotasAlumno.Row();
  const auto columnas = rtvNotasAlumno.Cols();
  const auto& padre = rtvNotasAlumno.TextMatrix(fila, columnas - 2);
  const auto& clave = rtvNotasAlumno.TextMatrix(fila, columnas - 1);
  const auto& materias = AlumnoActual().colMateria;
  if (padre == "0") return *materias[clave];
  static_cast<void>(materias[padre]);
  throw RuntimeError(ErrorNumber::MissingMember);  // a subject has no `Objetivos`
}

void frmNotaSeccionAlumno::ConfigurarRejillas() {
  ConfigurarRejilla(rtvNotasAlumno, {{kAnchoSinTitulo, ""},
                                     {1000, "Nota"},
                                     {2000, "Concepto"},
                                     {2000, "Procedimiento"},
                                     {2000, "Actitud"},
                                     {2000, "Observacion"}});
  ConfigurarRejilla(rtvNotasTutor, {{kAnchoSinTitulo, ""}, {1000, "Nota"}, {2000, "Actitud"}});
}

void frmNotaSeccionAlumno::ConfigurarColumnas() {
  rtvNotasAlumno.Clear();
  const auto paso = PasoUno();
  strColumna[0] = TituloMaterias(paso.tipo);
  PrepararColumnas(rtvNotasAlumno, 8, 2000,
                   {strColumna[0], "Nota", "Concepto", "Procedimiento", "Actitud", "Observacion"});
  if (blnCargando) {
    LeerEscala(rtvNotasAlumno, paso.tipo, "Abreviatura", intAnchosAlumno, strColumna);
    GuardarAnchosAlumno(true);
  } else {
    RestaurarAnchosAlumno();
  }
  const auto& materias = AlumnoActual().colMateria;
  for (const auto& materia : materias) rtvNotasAlumno.AddItem(materia->Nombre);
  int fila = 1;
  for (const auto& materia : materias) {
    if (!paso.blnRecuperar) EscribirNotas(rtvNotasAlumno, fila, *materia);
    rtvNotasAlumno.TextMatrix(fila, rtvNotasAlumno.Cols() - 1,
                              std::to_string(materia->IDMatDetalle));
    rtvNotasAlumno.TextMatrix(fila, rtvNotasAlumno.Cols() - 2, "0");
    ++fila;
  }
  rtvNotasAlumno.ColWidth(6, 0);
  rtvNotasAlumno.ColWidth(7, 0);
  // To nothing and back: the grid lays its columns out anew.
  rtvNotasAlumno.ColWidth(0, 0);
  rtvNotasAlumno.ColWidth(0, 2000);
  if (!blnCargando) RestaurarAnchosAlumno();
}

void frmNotaSeccionAlumno::CargarNotasTutor() {
  LlenarPanelTutor({rtvNotasTutor, fraObservacion[0], lblNotaManual[1], cboObservacion}, tutor,
                   PasoUno(), blnCargando);
}

void frmNotaSeccionAlumno::cboAlumnos_Click() {
  if (cboAlumnos.ListIndex() == -1) return;
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
  CargarNotasTutor();
  rtvNotasTutor.Width(ancho);
  rtvNotasTutor.Visible(true);
  if (rtvNotasAlumno.Rows() >= 2) rtvNotasAlumno.FixedRows(1);
  if (rtvNotasTutor.Rows() >= 2) rtvNotasTutor.FixedRows(1);
  rtvNotasAlumno.Redraw(true);
  rtvNotasTutor.Redraw(true);
  blnEdicionActiva = true;
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
  if (!blnEdicionActiva) return;
  const auto columna = rtvNotasAlumno.Col();
  const auto fila = rtvNotasAlumno.Row();
  if (columna > rtvNotasAlumno.Cols() - 3 || rtvNotasAlumno.ColWidth(columna) == 0 || fila == 0 ||
      columna == 0)
    return;
  const auto& materia = MateriaDeFila();
  if (materia.Fct) return;
  rtvNotasAlumno.ListaLimpiar(columna);
  rtvNotasAlumno.ListaAnadir(columna, " ", 0);
  CondicionesNota condiciones;
  condiciones.materiaYProfesor =
      DeMateriaYProfesores(rtvNotasAlumno.TextMatrix(fila, rtvNotasAlumno.Cols() - 1),
                           materia.IDProfesor, materia.IDProfesorAsociado);
  condiciones.tipoNota = TipoNotaDeCelda(columna, false);
  LlenarLista(rtvNotasAlumno, columna, SentenciaNotas(PasoUno(), condiciones), *this);
}

void frmNotaSeccionAlumno::rtvNotasAlumno_FinEdicion() {
  const auto columna = rtvNotasAlumno.Col();
  if (rtvNotasAlumno.ColWidth(columna) >= 1 && rtvNotasAlumno.Row() >= 1 && blnEdicionActiva &&
      EsColumnaNota(columna)) {
    const auto indice = rtvNotasAlumno.ListaIndice();
    const auto idNota = indice == -1 ? 0 : rtvNotasAlumno.ListaDato(indice);
    AsignarNota(MateriaDeFila(), columna, idNota, PasoUno().blnRecuperar);
  }
  GuardarAnchosAlumno(false);
}

void frmNotaSeccionAlumno::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaSeccionAlumno::rtvNotasTutor_InicioEdicion() {
  RestaurarAnchosTutor();
  if (blnEdicionActiva) LlenarCeldaTutor(rtvNotasTutor, PasoUno());
}

void frmNotaSeccionAlumno::rtvNotasTutor_FinEdicion() {
  const auto columna = rtvNotasTutor.Col();
  if (rtvNotasTutor.Row() >= 1 && blnEdicionActiva && (columna == 1 || columna == 2)) {
    static_cast<void>(AlumnoActual());
    throw RuntimeError(ErrorNumber::MissingMember);  // a student has no `Valores`
  }
  GuardarAnchosTutor(false);
}

void frmNotaSeccionAlumno::rtvNotasTutor_CambioAncho() { RestaurarAnchosTutor(); }

void frmNotaSeccionAlumno::cboObservacion_Click() {
  if (cboObservacion.ListIndex() == -1) return;
  static_cast<void>(AlumnoActual());
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Observacion`
}

void frmNotaSeccionAlumno::txtAusencias_Change() {
  static_cast<void>(AlumnoActual());
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Ausencias`
}

void frmNotaSeccionAlumno::txtRetrasos_Change() {
  static_cast<void>(AlumnoActual());
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Retrasos`
}

}  // namespace quorvane
