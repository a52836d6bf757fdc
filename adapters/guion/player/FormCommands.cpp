#include "adapters/guion/player/FormCommands.h"

#include "adapters/guion/player/ActiveForm.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/guion/player/FormJson.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"

namespace quorvane::guion {
namespace {

constexpr int kEnter = 13;
constexpr int kEscape = 27;

/// Presses the button that answers to the key, if the user could.
void PressButtonOf(const Form& form, bool CommandButton::*answers) {
  for (auto* const control : form.Controls()) {
    auto* const button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !(button->*answers) || !button->Usable()) continue;
    button->Press();
    return;
  }
}

}  // namespace

void Tecla(Guion& guion, const Command& command) {
  auto& form = ActiveForm(guion);
  const auto key = form.KeyDown(command.Number(0));
  if (!form.Visible()) return;
  if (key == kEnter) PressButtonOf(form, &CommandButton::Default);
  if (key == kEscape) PressButtonOf(form, &CommandButton::Cancel);
}

void Tamano(Guion& guion, const Command& command) {
  auto& form = ActiveForm(guion);
  if (command.Number(0) < 0 || command.Number(1) < 0)
    throw Refusal("una ventana no puede medir menos que nada");
  form.ResizeByUser(command.Number(0), command.Number(1));
}

void Cerrar(Guion& guion, const Command& /*command*/) { ActiveForm(guion).CloseByUser(); }

void Ver(Guion& guion, const Command& /*command*/) {
  const auto* const form = guion.Active();
  if (form == nullptr) throw Refusal("no hay ningún formulario abierto");
  guion.Events().Print("ver", FormJson(*form));
}

}  // namespace quorvane::guion
