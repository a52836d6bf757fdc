#pragma once

#include <concepts>
#include <string>

#include "grades/dialog/FormularioEncogido.h"
#include "grades/loading/DatosPasoUno.h"
#include "grades/locks/Publicacion.h"
#include "platform/controls/Animation.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"

namespace quorvane {

/// What each of the eight grade forms has, ordinary or final, under these names: what step one has
/// fixed, what it holds in the school, and how it shows that it works.
template <class F>
concept FormularioPasoDos = std::derived_from<F, Form> && requires(F& form, bool mostrar) {
  { form.PasoUno() } -> std::same_as<DatosPasoUno>;
  { form.publicacion } -> std::same_as<Publicacion&>;
  { form.strMateriasBloqueo } -> std::same_as<std::string&>;
  { form.blnEdicionActiva } -> std::same_as<bool&>;
  { form.fraAniCarga } -> std::same_as<Frame&>;
  { form.aniCarga } -> std::same_as<Animation&>;
  { form.carga } -> std::same_as<FormularioEncogido&>;
  form.MostrarCarga(mostrar);
};

}  // namespace quorvane
