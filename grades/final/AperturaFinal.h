#pragma once

#include <cstdint>
#include <string>

#include "frame/Conexiones.h"
#include "frame/Usuario.h"
#include "frame/cConfiguracion.h"
#include "grades/dialog/FormularioEncogido.h"
#include "grades/dialog/PasosPasoDos.h"
#include "grades/final/FormularioFinal.h"
#include "grades/loading/DatosPasoUno.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/FrontEnd.h"
#include "platform/host/MessageBox.h"

namespace quorvane {

// The pieces of `Form_Load` and `Form_Activate` that the final grade forms share, in the order in
// which they call them. What comes in between is each form's own.

/// `Form_Load` begins: the pointer waits, and the form has no students and no publication yet.
template <FormularioFinal F>
void EmpezarApertura(F& form) {
  Pantalla().MousePointer(Pointer::Hourglass);
  form.colAlumnos.Clear();
  form.Icon(cConfiguracion::Instancia().RutaIcono);
  form.blnConPublicacion = false;
}

/// Finds out whether the user is the tutor; if he isn't, what concerns the tutor alone is hidden.
template <FormularioFinal F>
void DecidirTutor(F& form, std::int32_t seccion) {
  form.blnTutor = EsTutor(Centro(), seccion);
  if (form.blnTutor) return;
  form.fraObservacion[0].Visible(false);
  form.chkPromocion.Visible(false);
}

template <FormularioFinal F>
void ActivarControles(F& form, bool activar) {
  Recorrido(form).Enabled(activar);
  form.cmdAceptar.Enabled(activar);
  form.cmdCancelar.Enabled(activar);
}

/// `Form_Activate` begins: the form shrinks to the animation under that text and answers nobody.
template <FormularioFinal F>
void EmpezarCarga(F& form, const std::string& texto) {
  auto& pantalla = Pantalla();
  form.blnCargando = true;
  pantalla.MousePointer(Pointer::Hourglass);
  ActivarControles(form, false);
  form.MostrarCarga(false);
  MostrarAnimacion(form.fraAniCarga, form.aniCarga, texto);
  pantalla.DoEvents();
}

/// After the load the form answers again, still shrunk; the pointer is the form's own.
template <FormularioFinal F>
void DejarActuar(F& form, Pointer pointer) {
  Pantalla().MousePointer(pointer);
  ActivarControles(form, true);
  form.Enabled(true);
}

/// Ends a form that has nothing to show: with that text, unless the user has read already why not.
template <FormularioFinal F>
void CerrarSinNotas(F& form, const std::string& texto) {
  if (!form.blnConPublicacion) BeepAndMessage(texto, MessageIcon::Information);
  form.cmdCancelar_Click();
}

/// Takes the publication and a lock for each subject loaded.
template <FormularioFinal F>
void PublicarFinal(F& form) {
  TomarBloqueos(form);
  // Neither the component nor the answer is used.
  static_cast<void>(Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId));
  static_cast<void>(PersonalDelUsuario(Centro()));
}

/// Gives the form back its measures and its controls, each as far as this user may reach it.
template <FormularioFinal F>
void TerminarCarga(F& form) {
  const auto& configuracion = cConfiguracion::Instancia();
  form.aniCarga.Stop();
  form.MostrarCarga(true);
  form.chkPromocion.Visible(form.bytPromocion == 1);
  if (configuracion.intIDPerfil != 0 && !form.blnTutor) {
    form.cboObservacion.Enabled(false);
    form.chkPromocion.Enabled(false);
  }
  form.fraAniCarga.Visible(false);
  if (!configuracion.Activa) {
    form.cmdAceptar.Enabled(false);
    Recorrido(form).Enabled(true);
  }
  Pantalla().MousePointer(Pointer::Default);
  form.blnCargando = false;
}

}  // namespace quorvane
