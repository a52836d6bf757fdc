#include "adapters/guion/player/ActiveForm.h"

#include "platform/controls/Form.h"

namespace quorvane::guion {

Form& ActiveForm(const Guion& guion) {
  auto* const form = guion.Active();
  if (form == nullptr) throw Refusal("no hay ningún formulario abierto");
  if (!form->Enabled()) throw Refusal(form->Name() + " está deshabilitado");
  return *form;
}

Control& UsableControl(const Guion& guion, const std::string& name) {
  const auto& form = ActiveForm(guion);
  auto* const control = form.Find(name);
  if (control == nullptr) throw Refusal(form.Name() + " no tiene ningún control " + name);
  if (!control->Shown()) throw Refusal(name + " está oculto");
  if (!control->Usable()) throw Refusal(name + " está deshabilitado");
  return *control;
}

}  // namespace quorvane::guion
