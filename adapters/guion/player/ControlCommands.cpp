#include "adapters/guion/player/ControlCommands.h"

#include "adapters/guion/player/ActiveForm.h"
#include "adapters/guion/player/Entries.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/MSFlexGrid.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "platform/text/Utf8.h"

namespace quorvane::guion {

void Elegir(Guion& guion, const Command& command) {
  auto& list = UsableControl<ItemList>(guion, command.Text(0), "una lista");
  const Entries entries{list.ListCount(), [&list](int i) { return list.List(i); },
                        [&list](int i) { return list.ItemData(i); }};
  list.ListIndex(FindEntry(command.arguments[1], entries));
}

void Marcar(Guion& guion, const Command& command) {
  UsableControl<CheckBox>(guion, command.Text(0), "una casilla").Value(command.Number(1));
}

void Pulsar(Guion& guion, const Command& command) {
  UsableControl<CommandButton>(guion, command.Text(0), "un botón").Press();
}

void Pestana(Guion& guion, const Command& command) {
  auto& tabs = UsableControl<TabStrip>(guion, command.Text(0), "una tira de pestañas");
  const auto tab = command.Number(1);
  if (tab < 1 || tab > tabs.TabCount()) throw Refusal("no hay ninguna pestaña " + command.Text(1));
  tabs.SelectedTab(tab);
}

void Escribir(Guion& guion, const Command& command) {
  auto& textBox = UsableControl<TextBox>(guion, command.Text(0), "un cuadro de texto");
  const auto& form = ActiveForm(guion);
  for (const auto character : Utf8Decode(command.Text(1))) {
    if (!form.Visible() || !textBox.Usable()) throw Refusal("ya no se puede seguir escribiendo");
    textBox.TypeKey(Utf8Encode(character));
  }
}

void Doble(Guion& guion, const Command& command) {
  auto& control = UsableControl(guion, command.Text(0));
  if (auto* const list = dynamic_cast<ListBox*>(&control)) {
    if (list->ListIndex() < 0) throw Refusal("no hay ninguna entrada elegida");
    list->DoubleClick();
  } else if (auto* const grid = dynamic_cast<MSFlexGrid*>(&control)) {
    if (grid->Row() < 0) throw Refusal("no hay ninguna fila");
    grid->DoubleClick();
  } else {
    throw Refusal(command.Text(0) + " no responde al doble clic");
  }
}

}  // namespace quorvane::guion
