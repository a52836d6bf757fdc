#pragma once

#include "grades/final/FormularioFinal.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"

namespace quorvane {

/// `Form_Unload`: gives the publication and its locks back, and with the form its global instance
/// goes. The form lives on as long as a show of it runs.
template <FormularioFinal F>
void DescargarFinal(F& form) {
  const auto paso = PasoUnoDe(form);
  form.publicacion.Devolver(paso.seccion, paso.evaluacion);
  form.blnEdicionActiva = false;
  form.Hide();
  Application::Instance().Screen().DoEvents();
  FormInstance<F>::Drop();
}

}  // namespace quorvane
