#pragma once

#include <cstdint>
#include <string>

#include "frame/Conexiones.h"
#include "frame/Usuario.h"
#include "frame/cConfiguracion.h"
#include "grades/dialog/FormularioNotas.h"
#include "grades/dialog/Pantalla.h"
#include "grades/dialog/PasosPasoDos.h"  // IWYU pragma: export (the rest of the steps)

namespace quorvane {

// The steps by which an ordinary grade form goes into its long work, loading or saving, and comes
// out of it. In which order a form takes them, and what it does between, is told in the form.

/// What the user can reach; what belongs to one student or subject isn't touched.
template <FormularioNotas F>
void ActivarControles(F& form, bool activar) {
  Recorrido(form).Enabled(activar);
  form.cmdAceptar.Enabled(activar);
  form.cmdCancelar.Enabled(activar);
  form.tabNotaManual.Enabled(activar);
  form.cmdAnterior.Enabled(activar);
  form.cmdSiguiente.Enabled(activar);
}

/// `MostrarCarga`: False shrinks the form to the animation, True gives it back its measures and
/// controls, but for the tutor's pane, which nobody is to reach, and in a recovery for what the
/// pane has besides the grades.
template <FormularioNotas F>
void EncogerORestaurar(F& form, bool mostrar) {
  if (!mostrar)
    form.carga.Encoger(form, form.fraAniCarga);
  else if (form.PasoUno().blnRecuperar)
    form.carga.Restaurar(form,
                         {&form.fraNotaManual[1], &form.fraObservacion[0], &form.fraAusencia[0]});
  else
    form.carga.Restaurar(form, {&form.fraNotaManual[1]});
}

/// What `Form_Load` begins with once nobody stands in the way: nothing is loaded, and it is known
/// whether the user sees the whole section.
template <FormularioNotas F>
void Vaciar(F& form, std::int32_t seccion) {
  Pantalla().MousePointer(Pointer::Hourglass);
  form.strMateriasBloqueo.clear();
  form.colAlumnos.Clear();
  form.Icon(cConfiguracion::Instancia().RutaIcono);
  form.blnTutor = EsTutor(Centro(), seccion);
}

/// The first step of loading: under that caption nothing but the animation is to be seen, and
/// nothing of the form can be used.
template <FormularioNotas F>
void EmpezarCarga(F& form, const std::string& caption) {
  form.blnCargando = true;
  Pantalla().MousePointer(Pointer::Hourglass);
  ActivarControles(form, false);
  form.Refresh();
  Pantalla().DoEvents();
  form.MostrarCarga(false);
  MostrarAnimacion(form.fraAniCarga, form.aniCarga, caption);
  Pantalla().DoEvents();
  form.Enabled(false);
}

/// What is to be loaded is there: the form can be used again, still shrunk.
template <FormularioNotas F>
void DejarActuar(F& form) {
  Pantalla().MousePointer(Pointer::Arrow);
  ActivarControles(form, true);
  form.Enabled(true);
}

/// A recovery has neither observation nor counters.
template <FormularioNotas F>
void OcultarTutoria(F& form) {
  form.fraObservacion[0].Visible(false);
  form.fraAusencia[0].Visible(false);
}

/// The last step of loading: the form in its full size. In a school year that can't be changed it
/// can be looked at, and not saved.
template <FormularioNotas F>
void TerminarCarga(F& form) {
  form.aniCarga.Stop();
  form.MostrarCarga(true);
  form.fraAniCarga.Visible(false);
  if (!cConfiguracion::Instancia().Activa) {
    form.cmdAceptar.Enabled(false);
    Recorrido(form).Enabled(true);
  }
  Pantalla().MousePointer(Pointer::Default);
  form.blnCargando = false;
}

}  // namespace quorvane
