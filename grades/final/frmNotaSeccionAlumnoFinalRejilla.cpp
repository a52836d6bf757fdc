// The grid of `frmNotaSeccionAlumnoFinal`: what it shows of the student, and the edit of its cells.
#include "grades/CeldaNotas.h"
#include "grades/NotasTutor.h"
#include "grades/final/ObservacionFinal.h"
#include "grades/final/RejillaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "platform/FormInstance.h"
#include "platform/RuntimeError.h"
#include "selection/frmNotaSeccionAlumno1.h"

namespace quorvane {
namespace {

/// While the rows are written the grid is so high that it neither scrolls nor clips.
constexpr std::int32_t kAltoConstruccion = 17670;
constexpr int kColumnas = 9;

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaSeccionAlumno1>::Get()); }

}  // namespace

cAlumno& frmNotaSeccionAlumnoFinal::AlumnoActual() const {
  return *colAlumnos[Key(cboAlumnos.SelectedData())];
}

cMateria& frmNotaSeccionAlumnoFinal::MateriaDeFila() const {
  return *AlumnoActual().colMateria[rtvNotasAlumno.TextMatrix(rtvNotasAlumno.Row(),
                                                              rtvNotasAlumno.Cols() - 1)];
}

bool frmNotaSeccionAlumnoFinal::FilaEditable() const {
  return rtvNotasAlumno.TextMatrix(rtvNotasAlumno.Row(), rtvNotasAlumno.Cols() - 2) == "0";
}

void frmNotaSeccionAlumnoFinal::ConfigurarRejillaInicial() {
  ConfigurarRejilla(rtvNotasAlumno, {{2000, "Materia"},
                                     {1000, "Nota"},
                                     {2000, "Concepto"},
                                     {2000, "Procedimiento"},
                                     {2000, "Actitud"},
                                     {2000, "Observacion"},
                                     {2000, "Medidas Adoptadas"},
                                     {},
                                     {}});
}

void frmNotaSeccionAlumnoFinal::ConfigurarColumnas() {
  const auto tipo = PasoUno().tipo;
  // Only on the first load the kinds of grade give their names to the columns.
  strColumna = {TituloMaterias(tipo), "Nota",    "Concepto",
                "Procedimiento",      "Actitud", "Observacion"};
  blnEdicionActiva = false;
  PrepararRejillaFinal(rtvNotasAlumno, {kColumnas, kAnchoNota, blnMedidas, blnCargando}, tipo,
                       intAnchosAlumno, strColumna);
  const auto& materias = AlumnoActual().colMateria;
  for (const auto& materia : materias) rtvNotasAlumno.AddItem(materia->Nombre);
  int fila = 1;
  for (const auto& materia : materias) {
    EscribirNotasFinales(rtvNotasAlumno, fila, *materia);
    rtvNotasAlumno.TextMatrix(fila, kColumnas - 1, std::to_string(materia->IDMatDetalle));
    rtvNotasAlumno.TextMatrix(fila, kColumnas - 2, "0");
    ++fila;
  }
  rtvNotasAlumno.ColWidth(kColumnas - 2, 0);
  rtvNotasAlumno.ColWidth(kColumnas - 1, 0);
  blnEdicionActiva = true;
  if (!blnCargando) RestaurarAnchosAlumno();
}

void frmNotaSeccionAlumnoFinal::cboAlumnos_Click() {
  if (cboAlumnos.ListIndex() == -1) return;
  blnEdicionActiva = false;
  rtvNotasAlumno.Redraw(false);
  const auto alto = rtvNotasAlumno.Height();
  rtvNotasAlumno.Height(kAltoConstruccion);
  rtvNotasAlumno.Visible(false);
  ConfigurarColumnas();
  rtvNotasAlumno.Height(alto);
  rtvNotasAlumno.Visible(true);
  MostrarRejilla();
  RehacerObservacion();
  MostrarRejilla();
}

void frmNotaSeccionAlumnoFinal::MostrarRejilla() {
  if (rtvNotasAlumno.Rows() >= 2) {
    rtvNotasAlumno.FixedRows(1);
    rtvNotasAlumno.Row(1);
  }
  rtvNotasAlumno.Redraw(true);
  blnEdicionActiva = true;
}

void frmNotaSeccionAlumnoFinal::RehacerObservacion() {
  if (bytPromocion == 1) {
    static_cast<void>(AlumnoActual());
    throw RuntimeError(ErrorNumber::MissingMember);  // a student has no `Promocion`
  }
  cboObservacion.Clear();
  fraObservacion[0].Visible(false);
  const auto paso = PasoUno();
  RecorrerObservaciones(
      paso.tipo, [&] { LlenarObservaciones(cboObservacion, SentenciaObservaciones(paso, false)); });
}

void frmNotaSeccionAlumnoFinal::RestaurarAnchosAlumno() {
  RestaurarAnchosFinales(rtvNotasAlumno, intAnchosAlumno, blnCargando);
}

void frmNotaSeccionAlumnoFinal::rtvNotasAlumno_InicioEdicion() {
  RestaurarAnchosAlumno();
  if (!blnEdicionActiva) return;
  const auto columna = rtvNotasAlumno.Col();
  const auto fila = rtvNotasAlumno.Row();
  if (columna == 0 || fila == 0 || columna > rtvNotasAlumno.Cols() - 3) return;
  rtvNotasAlumno.ListaLimpiar(columna);
  if (columna == kColumnaMedidas) {
    LlenarMedidas(rtvNotasAlumno, MateriaDeFila());
    return;
  }
  if (!FilaEditable()) return;
  rtvNotasAlumno.ListaAnadir(columna, " ", 0);
  const auto& clave = rtvNotasAlumno.TextMatrix(fila, rtvNotasAlumno.Cols() - 1);
  LlenarLista(rtvNotasAlumno, columna,
              SentenciaCeldaFinal(PasoUno(), columna, MateriaDeFila(), clave, true), *this);
}

void frmNotaSeccionAlumnoFinal::rtvNotasAlumno_FinEdicion() {
  if (rtvNotasAlumno.Row() < 1 || !blnEdicionActiva || !FilaEditable()) return;
  AsignarNotaFinal(MateriaDeFila(), rtvNotasAlumno.Col(), DatoElegido(rtvNotasAlumno));
}

void frmNotaSeccionAlumnoFinal::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaSeccionAlumnoFinal::cboObservacion_Click() {
  if (cboObservacion.ListIndex() == -1) return;
  static_cast<void>(AlumnoActual());
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Observacion`
}

void frmNotaSeccionAlumnoFinal::chkPromocion_Click() {
  static_cast<void>(AlumnoActual());
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Promocion`
}

}  // namespace quorvane
