#include "tests/walk/Gestures.h"

#include <array>

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/MSFlexGrid.h"
#include "platform/controls/Retivo.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "platform/text/Utf8.h"

namespace quorvane::test {
namespace {

constexpr int kEnter = 13;
constexpr int kEscape = 27;
constexpr int kUp = 38;
constexpr int kDown = 40;

/// Presses the button that answers to the key, if the user could.
void PressButtonOf(const Form& form, bool CommandButton::*answers) {
  for (auto* const control : form.Controls()) {
    auto* const button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !(button->*answers) || !button->Usable()) continue;
    button->Press();
    return;
  }
}

void PressKey(Form& form, int code) {
  const auto key = form.KeyDown(code);
  if (!form.Visible()) return;
  if (key == kEnter) PressButtonOf(form, &CommandButton::Default);
  if (key == kEscape) PressButtonOf(form, &CommandButton::Cancel);
}

class Collector {
 public:
  Collector(Form& form, Prng& random) : form_(form), random_(random) {}

  std::vector<Gesture> Collect() {
    for (auto* const control : form_.Controls())
      if (control->Usable()) AddFor(*control);
    AddKeys();
    const auto width = Draw(0, 20'000);
    const auto height = Draw(0, 15'000);
    Add(1, "tamano " + std::to_string(width) + " " + std::to_string(height),
        [this_ = &form_, width, height] { this_->ResizeByUser(width, height); });
    gestures_.push_back(CloseWindow(form_));
    return std::move(gestures_);
  }

 private:
  int Draw(int from, int to) {
    return from + static_cast<int>(random_.Below(static_cast<std::size_t>(to - from + 1)));
  }

  void Add(int weight, std::string text, std::function<void()> act, bool accepts = false) {
    gestures_.push_back({weight, std::move(text), accepts, std::move(act)});
  }

  void AddFor(Control& control) {
    if (auto* const list = dynamic_cast<ItemList*>(&control)) AddList(*list);
    if (auto* const box = dynamic_cast<ListBox*>(&control)) AddListBox(*box);
    if (auto* const check = dynamic_cast<CheckBox*>(&control)) AddCheck(*check);
    if (auto* const button = dynamic_cast<CommandButton*>(&control)) AddButton(*button);
    if (auto* const tabs = dynamic_cast<TabStrip*>(&control)) AddTabs(*tabs);
    if (auto* const text = dynamic_cast<TextBox*>(&control)) AddText(*text);
    if (auto* const grid = dynamic_cast<Grid*>(&control)) AddGrid(*grid);
    if (auto* const grid = dynamic_cast<MSFlexGrid*>(&control)) AddFlexGrid(*grid);
    if (auto* const grid = dynamic_cast<Retivo*>(&control)) AddRetivo(*grid);
  }

  void AddList(ItemList& list) {
    if (list.ListCount() == 0) return;
    constexpr int kUnchosen = 15;
    const auto entry = Draw(0, list.ListCount() - 1);
    Add(list.ListIndex() < 0 ? kUnchosen : 2,
        "elegir " + list.Name() + " #" + std::to_string(entry),
        [&list, entry] { list.ListIndex(entry); });
  }

  void AddListBox(ListBox& list) {
    if (list.ListIndex() >= 0) Add(3, "doble " + list.Name(), [&list] { list.DoubleClick(); });
  }

  void AddCheck(CheckBox& check) {
    const auto value = 1 - check.Value();
    Add(2, "marcar " + check.Name() + " " + std::to_string(value),
        [&check, value] { check.Value(value); });
  }

  void AddButton(CommandButton& button) {
    const auto weight = button.Cancel ? 1 : button.Default ? 7 : 5;
    Add(
        weight, "pulsar " + button.Name(), [&button] { button.Press(); },
        button.Name() == "cmdAceptar");
  }

  void AddTabs(TabStrip& tabs) {
    if (tabs.TabCount() == 0) return;
    const auto tab = Draw(1, tabs.TabCount());
    Add(2, "pestana " + tabs.Name() + " " + std::to_string(tab),
        [&tabs, tab] { tabs.SelectedTab(tab); });
  }

  void AddText(TextBox& text) {
    static const std::array<const char*, 8> kKeys{"0", "1", "5", "9", "\b", "x", "-", "ñ"};
    const std::string key = random_.OneOf(kKeys);
    Add(2, "escribir " + text.Name() + " \"" + key + "\"", [&text, key] { text.TypeKey(key); });
  }

  void AddGrid(Grid& grid) {
    if (grid.Rows() <= grid.FixedRows() || grid.Cols() == 0) return;
    const auto row = Draw(grid.FixedRows(), grid.Rows() - 1);
    const auto col = Draw(0, grid.Cols() - 1);
    if (grid.ColWidth(col) == 0) return;
    Add(4, "fila " + grid.Name() + " " + std::to_string(row) + " " + std::to_string(col),
        [&grid, row, col] {
          grid.Row(row);
          grid.Col(col);
        });
  }

  void AddFlexGrid(MSFlexGrid& grid) {
    if (grid.Row() >= 0) Add(4, "doble " + grid.Name(), [&grid] { grid.DoubleClick(); });
  }

  void AddRetivo(Retivo& grid) {
    if (grid.Cols() == 0) return;
    const auto col = Draw(0, grid.Cols() - 1);
    const auto width = Draw(0, 3000);
    // A column of no width has no border to drag.
    if (grid.ColWidth(col) != 0)
      Add(1, "ancho " + grid.Name() + " " + std::to_string(col) + " " + std::to_string(width),
          [&grid, col, width] { grid.DragColumn(col, width); });
    Add(1, "alto " + grid.Name(), [&grid] { grid.DragRow(); });
    if (grid.Rows() <= grid.FixedRows() || !grid.EditsThroughList(col) || grid.ColWidth(col) == 0)
      return;
    const auto row = Draw(grid.FixedRows(), grid.Rows() - 1);
    const auto cell = grid.Name() + " " + std::to_string(row) + " " + std::to_string(col);
    const auto entry = random_.Below(100);
    Add(20, "editar " + cell + " " + std::to_string(entry),
        [this_ = &form_, &grid, row, col, entry] { Edit(*this_, grid, row, col, entry); });
    Add(2, "lista " + cell, [&grid, row, col] { grid.BeginEdit(row, col); });
  }

  static void Edit(const Form& form, Retivo& grid, int row, int col, std::size_t entry) {
    grid.BeginEdit(row, col);
    if (!form.Visible() || !grid.Usable() || grid.ColWidth(grid.Col()) == 0) return;
    // One more than there are entries: none.
    const auto count = grid.Lista(grid.Col()).size();
    grid.EndEdit(static_cast<int>(entry % (count + 1)) - 1);
  }

  void AddKeys() {
    static const std::array<int, 6> kCodes{kEnter, kEscape, kUp, kDown, 9, 65};
    const auto code = random_.OneOf(kCodes);
    Add(
        2, "tecla " + std::to_string(code), [this_ = &form_, code] { PressKey(*this_, code); },
        code == kEnter);
  }

  Form& form_;
  Prng& random_;
  std::vector<Gesture> gestures_;
};

}  // namespace

std::vector<Gesture> GesturesOn(Form& form, Prng& random) {
  return Collector(form, random).Collect();
}

Gesture CloseWindow(Form& form) {
  return {1, "cerrar", false, [&form] { form.CloseByUser(); }};
}

}  // namespace quorvane::test
