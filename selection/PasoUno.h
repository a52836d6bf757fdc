#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "frame/Usuario.h"
#include "frame/cConfiguracion.h"
#include "platform/data/Value.h"
#include "selection/FormularioPasoUno.h"  // IWYU pragma: keep

namespace quorvane {

// What the step-one dialogs do in the same words. All measures are in twips.

inline constexpr std::int32_t kMargenPasoUno = 120;
inline constexpr std::int32_t kAnchoMarco = 6360;
inline constexpr std::int32_t kPrimeraFila = 270;  ///< of a frame: the top of its first list

/// A frame for so many rows.
void DibujarMarco(Frame& marco, std::int32_t arriba, std::int32_t filas);

/// A list with its label in a row of its frame, counted from 0.
void DibujarLista(Label& rotulo, ComboBox& lista, std::int32_t fila, const std::string& texto);

/// Where what follows that frame closely begins.
std::int32_t DebajoDe(const Frame& marco);

/// Check boxes and buttons below the last frame, and the form round all of it.
template <FormularioPasoUno F>
void DibujarPie(F& f, const Frame& ultimo) {
  const auto arriba = ultimo.Top() + ultimo.Height() + kMargenPasoUno;
  f.chkMostrar.Place(kMargenPasoUno + 180, arriba, 6000, 285);
  f.chkRecuperacion.Place(kMargenPasoUno + 180, arriba + 330, 2400, 285);
  f.chkTodosProm.Place(kMargenPasoUno + 2880, arriba + 330, 3300, 285);
  const auto botones = arriba + 780;
  f.cmdNotaManual1[0].Place(kMargenPasoUno + kAnchoMarco - 2790, botones, 1335, 375);
  f.cmdNotaManual1[1].Place(kMargenPasoUno + kAnchoMarco - 1335, botones, 1335, 375);
  f.Width(kAnchoMarco + 2 * kMargenPasoUno + Form::kBorderWidth);
  f.Height(botones + 375 + kMargenPasoUno + Form::kBorderHeight);
}

/// Title, captions, measures, default and cancel button.
template <FormularioPasoUno F>
void DibujarPasoUno(F& f) {
  f.Caption("Introducción de Notas. Paso 1 de 2");
  DibujarMarco(f.fraNotaManual1[0], 60, 3);
  DibujarLista(f.lblNotamanual1[0], f.cboTipoEnsenanza, 0, "(*) Tipo de enseñanza:");
  DibujarLista(f.lblNotamanual1[1], f.cboCursos, 1, "(*) Curso:");
  DibujarLista(f.lblNotamanual1[2], f.cboSecciones, 2, "(*) Sección:");
  DibujarMarco(f.fraNotaManual1[1], DebajoDe(f.fraNotaManual1[0]), 1);
  DibujarLista(f.lblNotamanual1[3], f.cboEvaluaciones, 0, "(*) Evaluación:");
  f.chkMostrar.Caption("Mostrar todo el ancho de las notas");
  f.chkRecuperacion.Caption("Recuperación");
  f.chkTodosProm.Caption("Promocionar a todos");
  f.cmdNotaManual1[0].Caption("Siguiente >");
  f.cmdNotaManual1[0].Default = true;
  f.cmdNotaManual1[1].Caption("Salir");
  f.cmdNotaManual1[1].Cancel = true;
  DibujarPie(f, f.fraNotaManual1[1]);
}

/// The frame of the list that a section dialog has besides, below that of the evaluations; what
/// stood there moves down. To be called after `DibujarPasoUno`.
template <FormularioPasoUnoDeSeccion F>
void DibujarEleccion(F& f, ComboBox& lista, const std::string& texto) {
  DibujarMarco(f.fraNotaManual1[2], DebajoDe(f.fraNotaManual1[1]), 1);
  DibujarLista(f.lblNotamanual1[4], lista, 0, texto);
  lista.Width(3120);
  f.cmdAnterior.Place(5280, kPrimeraFila, 420, 315);
  f.cmdSiguiente.Place(5760, kPrimeraFila, 420, 315);
  DibujarPie(f, f.fraNotaManual1[2]);
}

/// Each control calls its handler.
template <FormularioPasoUno F>
void ConectarPasoUno(F& f) {
  f.LeaveBy(f.cmdNotaManual1[1]);
  f.cboTipoEnsenanza.Click = [&f] { f.cboTipoEnsenanza_Click(); };
  f.cboCursos.Click = [&f] { f.cboCursos_Click(); };
  f.cboSecciones.Click = [&f] { f.cboSecciones_Click(); };
  f.cboEvaluaciones.Click = [&f] { f.cboEvaluaciones_Click(); };
  f.cmdNotaManual1[0].Click = [&f] { f.cmdNotaManual1_Click(0); };
  f.cmdNotaManual1[1].Click = [&f] { f.cmdNotaManual1_Click(1); };
}

/// Recovery and promotion are out of sight, one in the other's place, and the dialog can't go on.
template <FormularioPasoUno F>
void OcultarOpciones(F& f) {
  f.chkTodosProm.Visible(false);
  f.chkTodosProm.Left(f.chkRecuperacion.Left());
  f.chkTodosProm.Top(f.chkRecuperacion.Top());
  f.chkRecuperacion.Value(0);
  f.chkRecuperacion.Visible(false);
  f.cmdNotaManual1[0].Enabled(false);
}

/// The session's user as a member of staff: for profile 0, which is nobody's, he isn't looked up.
/// Error 6 beyond 16 bits.
template <FormularioPasoUno F>
void BuscarPersonal(F& f, Connection& centro) {
  if (cConfiguracion::Instancia().intIDPerfil == 0) return;
  f.gIDPersonal = Value(PersonalDelUsuario(centro)).Integer();
}

/// What the check boxes say goes over to step two.
template <FormularioPasoUno F>
void TomarOpciones(F& f) {
  f.blnRecuperar = f.chkRecuperacion.Value() == 1;
  f.gblnTPromocion = f.chkTodosProm.Value() == 1;
}

/// What step two bears as `mstrCaption`.
template <FormularioPasoUno F>
std::string TituloPasoDos(const F& f) {
  return f.cboTipoEnsenanza.Text() + " " + f.cboCursos.Text() + " " + f.cboSecciones.Text();
}

/// True, and the user is told, when one of the lists has no entry selected.
bool FaltanDatos(std::initializer_list<const ComboBox*> listas);

/// Lets pending events run once the form is out of sight.
void OcultarYCeder(Form& formulario);

}  // namespace quorvane
