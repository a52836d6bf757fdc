#pragma once

#include <concepts>
#include <cstdint>
#include <tuple>

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"

namespace quorvane {

/// A step-one dialog: what the four have under one name, whatever they grade. What is the same to
/// the word in them is written once over this contract (`PasoUno.h`); what differs, and the order
/// of the steps, stands in each of them.
///
/// Steps two read the selected entries, `gIDPersonal` and `blnRecuperar` while they live; a dialog
/// fills the four lists in their order, each from the entry chosen in the one before.
template <class F>
concept FormularioPasoUno = std::derived_from<F, Form> && requires(F& f) {
  // What is graded, and the frames and labels of the lists.
  { f.fraNotaManual1[0] } -> std::same_as<Frame&>;
  { f.lblNotamanual1[0] } -> std::same_as<Label&>;
  { f.cboTipoEnsenanza } -> std::same_as<ComboBox&>;
  { f.cboCursos } -> std::same_as<ComboBox&>;
  { f.cboSecciones } -> std::same_as<ComboBox&>;
  { f.cboEvaluaciones } -> std::same_as<ComboBox&>;
  // How it is graded, and 0 to go on, 1 to leave.
  { f.chkMostrar } -> std::same_as<CheckBox&>;
  { f.chkRecuperacion } -> std::same_as<CheckBox&>;
  { f.chkTodosProm } -> std::same_as<CheckBox&>;
  { f.cmdNotaManual1[0] } -> std::same_as<CommandButton&>;
  // What it knows, for itself and for step two.
  { f.blnRecuperar } -> std::same_as<bool&>;
  { f.blnPosibleRecuperacion } -> std::same_as<bool&>;
  { f.blnEntrar } -> std::same_as<bool&>;
  { f.gIDPersonal } -> std::same_as<std::int16_t&>;
  { f.gblnTPromocion } -> std::same_as<bool&>;
  // What the user does.
  f.cboTipoEnsenanza_Click();
  f.cboCursos_Click();
  f.cboSecciones_Click();
  f.cboEvaluaciones_Click();
  f.cmdNotaManual1_Click(0);
};

/// A step-one dialog of a section flow: it asks for one subject or student too, in a third frame,
/// with buttons that walk that list. The list itself bears another name in each.
template <class F>
concept FormularioPasoUnoDeSeccion =
    FormularioPasoUno<F> && std::tuple_size_v<decltype(F::fraNotaManual1)>
== 3 && std::tuple_size_v<decltype(F::lblNotamanual1)> == 5 && requires(F& f) {
  { f.cmdAnterior } -> std::same_as<CommandButton&>;
  { f.cmdSiguiente } -> std::same_as<CommandButton&>;
  { f.blnTutor } -> std::same_as<bool&>;
  f.cmdAnterior_Click();
  f.cmdSiguiente_Click();
};

}  // namespace quorvane
