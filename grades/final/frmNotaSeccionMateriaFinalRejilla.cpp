// The grid of `frmNotaSeccionMateriaFinal`: what it shows of the subject, and the edit of its
// cells.
#include "grades/final/ObservacionFinal.h"
#include "grades/final/PorMateriaFinal.h"
#include "grades/final/RejillaFinal.h"
#include "grades/final/frmNotaSeccionMateriaFinal.h"
#include "grades/grid/NotasTutor.h"
#include "platform/Application.h"
#include "platform/FormInstance.h"
#include "platform/FrontEnd.h"
#include "platform/RuntimeError.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane {
namespace {

/// While the rows are written the grid is so high that it neither scrolls nor clips.
constexpr std::int32_t kAltoConstruccion = 17670;
constexpr int kColumnas = 8;
constexpr std::int32_t kAnchoAlumno = 3000;

DatosPasoUno PasoUno() { return DatosPasoUnoDe(FormInstance<frmNotaSeccionMateria1>::Get()); }

}  // namespace

const MateriaDeCombo& frmNotaSeccionMateriaFinal::EntradaActual() const {
  return ListaMaterias[static_cast<std::size_t>(cboMaterias.SelectedData()) - 1];
}

void frmNotaSeccionMateriaFinal::ConfigurarRejillaInicial() {
  ConfigurarRejilla(rtvNotasAlumno, {{2000, "Materia"},
                                     {1000, "Nota"},
                                     {2000, "Concepto"},
                                     {2000, "Procedimiento"},
                                     {2000, "Actitud"},
                                     {2000, "Observacion"},
                                     {2000, "Medidas Adoptadas"},
                                     {}});
}

void frmNotaSeccionMateriaFinal::ConfigurarColumnas() {
  const auto tipo = PasoUno().tipo;
  strColumna[0] = "Orden en Sección / Alumno";
  blnEdicionActiva = false;
  PrepararRejillaFinal(rtvNotasAlumno, {kColumnas, kAnchoAlumno, blnMedidas, blnCargando}, tipo,
                       intAnchosAlumno, strColumna);
  LlenarFilasFinales(rtvNotasAlumno, colAlumnos, EntradaActual());
  rtvNotasAlumno.ColWidth(kColumnas - 1, 0);
  blnEdicionActiva = true;
  if (!blnCargando) RestaurarAnchosAlumno();
}

void frmNotaSeccionMateriaFinal::cboMaterias_Click() {
  if (cboMaterias.ListIndex() == -1) return;
  auto& pantalla = Application::Instance().Screen();
  pantalla.MousePointer(Pointer::Hourglass);
  blnEdicionActiva = false;
  rtvNotasAlumno.Redraw(false);
  const auto alto = rtvNotasAlumno.Height();
  rtvNotasAlumno.Height(kAltoConstruccion);
  rtvNotasAlumno.Visible(false);
  ConfigurarColumnas();
  rtvNotasAlumno.Height(alto);
  SeleccionarPrimeraFila(rtvNotasAlumno);
  rtvNotasAlumno.Visible(true);
  rtvNotasAlumno.Redraw(true);
  blnEdicionActiva = true;
  pantalla.MousePointer(Pointer::Default);
}

void frmNotaSeccionMateriaFinal::RestaurarAnchosAlumno() {
  RestaurarAnchosFinales(rtvNotasAlumno, intAnchosAlumno, blnCargando);
}

void frmNotaSeccionMateriaFinal::rtvNotasAlumno_InicioEdicion() {
  RestaurarAnchosAlumno();
  if (!blnEdicionActiva) return;
  if (blnTutor) RehacerObservacion();
  LlenarCelda();
  fraObservacion[0].Visible(false);
}

void frmNotaSeccionMateriaFinal::RehacerObservacion() {
  cboObservacion.Clear();
  fraObservacion[0].Visible(false);
  const auto paso = PasoUno();
  RecorrerObservaciones(paso.tipo, [&] {
    lblNotaManual[1].Caption(ObservacionAlumno + " al alumno " +
                             rtvNotasAlumno.TextMatrix(rtvNotasAlumno.Row(), 0));
    lblNotaManual[1].Left(cboObservacion.Left());
    lblNotaManual[1].Top(cboObservacion.Top());
    LlenarObservaciones(cboObservacion, SentenciaObservaciones(paso, true));
  });
}

void frmNotaSeccionMateriaFinal::LlenarCelda() {
  const auto columna = rtvNotasAlumno.Col();
  if (columna == 0 || rtvNotasAlumno.Row() == 0 || columna > rtvNotasAlumno.Cols() - 2) return;
  LlenarCeldaDeMateria(rtvNotasAlumno, colAlumnos, EntradaActual(), PasoUno(), *this);
}

void frmNotaSeccionMateriaFinal::rtvNotasAlumno_FinEdicion() {
  if (rtvNotasAlumno.Row() < 1 || !blnEdicionActiva) return;
  TomarCeldaDeMateria(rtvNotasAlumno, colAlumnos, EntradaActual());
}

void frmNotaSeccionMateriaFinal::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaSeccionMateriaFinal::rtvNotasAlumno_CambioAlto() {}

void frmNotaSeccionMateriaFinal::cboObservacion_Click() {
  if (cboObservacion.ListIndex() == -1) return;
  static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
  throw RuntimeError(ErrorNumber::MissingMember);  // a student has no `Observacion`
}

void frmNotaSeccionMateriaFinal::chkPromocion_Click() {
  static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Promocion`
}

}  // namespace quorvane
