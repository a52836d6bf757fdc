#pragma once

#include <concepts>

#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"

namespace quorvane {

/// A dialog with two lists, between which the user moves entries.
template <class F>
concept FormularioDosListas = std::derived_from<F, Form> && requires(F& f) {
  // The names of the labels are crossed: each stands over the list that its caption names.
  { f.lblDisponibles } -> std::same_as<Label&>;
  { f.lstSeleccionados } -> std::same_as<ListBox&>;
  { f.lblSeleccionadas } -> std::same_as<Label&>;
  { f.lstDisponibles } -> std::same_as<ListBox&>;
  // From the available ones to the selected ones, and back: one, or all.
  { f.cmdAgregarUno } -> std::same_as<CommandButton&>;
  { f.cmdAgregarTodos } -> std::same_as<CommandButton&>;
  { f.cmdEliminarUno } -> std::same_as<CommandButton&>;
  { f.cmdEliminarTodos } -> std::same_as<CommandButton&>;
  f.cmdAgregarUno_Click();
  f.cmdAgregarTodos_Click();
  f.cmdEliminarUno_Click();
  f.cmdEliminarTodos_Click();
};

/// What the labels and buttons say, and whom they call; a double click moves an entry too.
template <FormularioDosListas F>
void PonerDosListas(F& f) {
  f.lblDisponibles.Caption("Seleccionadas:");
  f.lblSeleccionadas.Caption("Disponibles:");
  f.cmdAgregarUno.Caption("<- Agregar");
  f.cmdAgregarTodos.Caption("<<- Todos");
  f.cmdEliminarUno.Caption("Quitar ->");
  f.cmdEliminarTodos.Caption("Todos ->>");
  f.cmdAgregarUno.Click = [&f] { f.cmdAgregarUno_Click(); };
  f.lstDisponibles.DblClick = [&f] { f.cmdAgregarUno_Click(); };
  f.cmdAgregarTodos.Click = [&f] { f.cmdAgregarTodos_Click(); };
  f.cmdEliminarUno.Click = [&f] { f.cmdEliminarUno_Click(); };
  f.lstSeleccionados.DblClick = [&f] { f.cmdEliminarUno_Click(); };
  f.cmdEliminarTodos.Click = [&f] { f.cmdEliminarTodos_Click(); };
}

/// Moves the selected entry to the end of the other list; without one nothing happens.
void MoveSelected(ListBox& from, ListBox& to);

/// Moves all entries, in their order, to the end of the other list.
void MoveAll(ListBox& from, ListBox& to);

}  // namespace quorvane
