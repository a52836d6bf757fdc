#pragma once

#include <string>

#include "grades/dialog/FormularioPasoDos.h"
#include "grades/dialog/Pantalla.h"

namespace quorvane {

// The steps that ordinary and final grade forms take alike.

/// The publication and the locks of the subjects that were loaded.
template <FormularioPasoDos F>
void TomarBloqueos(F& form) {
  const auto paso = form.PasoUno();
  form.publicacion.InsertarPublicacion(paso.gIDPersonal, paso.evaluacion);
  form.publicacion.InsertarBloqueos(form.strMateriasBloqueo, paso.gIDPersonal, paso.evaluacion);
}

/// The first step of saving, from which the form doesn't come back: it closes when it has saved.
/// It shrinks to the animation under that text, and the pointer waits.
template <FormularioPasoDos F>
void EmpezarGrabacion(F& form, const std::string& texto) {
  form.MostrarCarga(false);
  form.Enabled(false);
  MostrarAnimacion(form.fraAniCarga, form.aniCarga, texto);
  Pantalla().DoEvents();
  Pantalla().MousePointer(Pointer::Hourglass);
}

/// What `Form_Unload` begins with, however the form closes: what it holds in the school is given
/// back, then it goes. Errors as `Publicacion::Devolver`, which leave it on the screen.
template <FormularioPasoDos F>
void DevolverYOcultar(F& form) {
  const auto paso = form.PasoUno();
  form.publicacion.Devolver(paso.seccion, paso.evaluacion);
  form.blnEdicionActiva = false;
  form.Hide();
  Pantalla().DoEvents();
}

}  // namespace quorvane
