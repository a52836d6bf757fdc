#pragma once

#include <concepts>
#include <cstdint>

#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"

namespace quorvane {

/// A dialog that the user takes or leaves.
template <class F>
concept FormularioAceptarCancelar = std::derived_from<F, Form> && requires(F& f) {
  { f.cmdAceptar } -> std::same_as<CommandButton&>;
  { f.cmdCancelar } -> std::same_as<CommandButton&>;
  f.cmdAceptar_Click();
  f.cmdCancelar_Click();
};

/// The two buttons beside each other, the left one there; measures in twips. Enter presses the one
/// and Escape the other.
template <FormularioAceptarCancelar F>
void PonerAceptarCancelar(F& f, std::int32_t left, std::int32_t top) {
  f.cmdAceptar.Caption("Aceptar");
  f.cmdAceptar.Default = true;
  f.cmdAceptar.Place(left, top, 1305, 375);
  f.cmdAceptar.Click = [&f] { f.cmdAceptar_Click(); };
  f.cmdCancelar.Caption("Cancelar");
  f.cmdCancelar.Cancel = true;
  f.cmdCancelar.Place(left + 1425, top, 1305, 375);
  f.cmdCancelar.Click = [&f] { f.cmdCancelar_Click(); };
}

}  // namespace quorvane
