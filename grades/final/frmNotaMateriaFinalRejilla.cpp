// The grid of `frmNotaMateriaFinal`: what it shows of the subject, and the edit of its cells.
#include "grades/final/PorMateriaFinal.h"
#include "grades/final/RejillaFinal.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "platform/Application.h"
#include "platform/FormInstance.h"
#include "platform/FrontEnd.h"
#include "platform/RuntimeError.h"
#include "selection/frmNotaMateria1.h"

namespace quorvane {
namespace {

/// While the rows are written the grid is so high that it neither scrolls nor clips.
constexpr std::int32_t kAltoConstruccion = 17670;
constexpr int kColumnas = 8;
constexpr std::int32_t kAnchoAlumno = 3000;

DatosPasoUno PasoUno() { return DatosPasoUnoDe(FormInstance<frmNotaMateria1>::Get()); }

}  // namespace

const MateriaDeCombo& frmNotaMateriaFinal::EntradaActual() const {
  return ListaMaterias[static_cast<std::size_t>(cboMaterias.SelectedData()) - 1];
}

void frmNotaMateriaFinal::ConfigurarRejillaInicial() {
  ConfigurarRejilla(rtvNotasAlumno, {{2000, "Materia"},
                                     {1000, "Nota"},
                                     {2000, "Concepto"},
                                     {2000, "Procedimiento"},
                                     {2000, "Actitud"},
                                     {2000, "Observacion"},
                                     {2000, "Medidas Adoptadas"},
                                     {}});
}

void frmNotaMateriaFinal::ConfigurarColumnas() {
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

void frmNotaMateriaFinal::cboMaterias_Click() {
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

void frmNotaMateriaFinal::RestaurarAnchosAlumno() {
  RestaurarAnchosFinales(rtvNotasAlumno, intAnchosAlumno, blnCargando);
}

void frmNotaMateriaFinal::rtvNotasAlumno_InicioEdicion() {
  RestaurarAnchosAlumno();
  if (!blnEdicionActiva) return;
  const auto columna = rtvNotasAlumno.Col();
  if (columna == 0 || rtvNotasAlumno.Row() == 0 || columna > rtvNotasAlumno.Cols() - 2) return;
  LlenarCeldaDeMateria(rtvNotasAlumno, colAlumnos, EntradaActual(), PasoUno(), *this);
}

void frmNotaMateriaFinal::rtvNotasAlumno_FinEdicion() {
  if (rtvNotasAlumno.Row() < 1 || !blnEdicionActiva) return;
  TomarCeldaDeMateria(rtvNotasAlumno, colAlumnos, EntradaActual());
}

void frmNotaMateriaFinal::rtvNotasAlumno_CambioAncho() { RestaurarAnchosAlumno(); }

void frmNotaMateriaFinal::rtvNotasAlumno_CambioAlto() {}

void frmNotaMateriaFinal::cboObservacion_Click() {
  if (cboObservacion.ListIndex() == -1) return;
  static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
  throw RuntimeError(ErrorNumber::MissingMember);  // a student has no `Observacion`
}

void frmNotaMateriaFinal::chkPromocion_Click() {
  static_cast<void>(AlumnoDeFila(rtvNotasAlumno, colAlumnos));
  throw RuntimeError(ErrorNumber::MissingMember);  // nor `Promocion`
}

}  // namespace quorvane
