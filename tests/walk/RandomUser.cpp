#include "tests/walk/RandomUser.h"

#include <array>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/MSFlexGrid.h"
#include "platform/controls/Retivo.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "platform/host/Application.h"
#include "platform/text/Utf8.h"

namespace quorvane::test {

/// Something that a user can do now: on a control that he sees and that is enabled.
struct Gesture {
  int weight = 0;  ///< how often it is done, against the others
  std::string text;
  bool accepts = false;  ///< may press the button "Aceptar"
  std::function<void()> act;

  /// The user closes the window with its X.
  static Gesture Close(Form& form) {
    return {1, "cerrar", false, [&form] { form.CloseByUser(); }};
  }
};

namespace {

/// All kinds of gestures that a form takes as it stands, each with an entry, row or text drawn
/// for it. Weighted so that forms are filled in, gone through, saved and left. There is always one:
/// a window can be closed. The gestures are good until the form changes.
class PossibleGestures {
 public:
  PossibleGestures(Form& form, Prng& random) : form_(form), random_(random) {}

  std::vector<Gesture> Collect() {
    for (auto* const control : form_.Controls())
      if (control->Usable()) AddFor(*control);
    AddKeys();
    const auto width = Draw(0, 20'000);
    const auto height = Draw(0, 15'000);
    Add(1, Text("tamano", {width, height}),
        [this_ = &form_, width, height] { this_->ResizeByUser(width, height); });
    gestures_.push_back(Gesture::Close(form_));
    return std::move(gestures_);
  }

 private:
  static constexpr int kEnter = 13;
  static constexpr int kEscape = 27;
  static constexpr int kUp = 38;
  static constexpr int kDown = 40;

  int Draw(int from, int to) {
    return from + static_cast<int>(random_.Below(static_cast<std::size_t>(to - from + 1)));
  }

  static std::string Text(std::string text, std::initializer_list<int> numbers) {
    for (const auto number : numbers) text += " " + std::to_string(number);
    return text;
  }

  void Add(int weight, std::string text, std::function<void()> act, bool accepts = false) {
    gestures_.push_back({weight, std::move(text), accepts, std::move(act)});
  }

  void AddFor(Control& control) {
    if (auto* const list = dynamic_cast<ItemList*>(&control)) AddList(*list);
    if (auto* const box = dynamic_cast<ListBox*>(&control); box && box->ListIndex() >= 0)
      Add(3, "doble " + box->Name(), [box] { box->DoubleClick(); });
    if (auto* const check = dynamic_cast<CheckBox*>(&control)) AddCheck(*check);
    if (auto* const button = dynamic_cast<CommandButton*>(&control)) AddButton(*button);
    if (auto* const tabs = dynamic_cast<TabStrip*>(&control)) AddTabs(*tabs);
    if (auto* const text = dynamic_cast<TextBox*>(&control)) AddText(*text);
    if (auto* const grid = dynamic_cast<Grid*>(&control)) AddGrid(*grid);
    if (auto* const grid = dynamic_cast<MSFlexGrid*>(&control); grid && grid->Row() >= 0)
      Add(4, "doble " + grid->Name(), [grid] { grid->DoubleClick(); });
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

  void AddCheck(CheckBox& check) {
    const auto value = 1 - check.Value();
    Add(2, Text("marcar " + check.Name(), {value}), [&check, value] { check.Value(value); });
  }

  void AddButton(CommandButton& button) {
    Add(
        button.Cancel    ? 1
        : button.Default ? 7
                         : 5,
        "pulsar " + button.Name(), [&button] { button.Press(); }, button.Name() == "cmdAceptar");
  }

  void AddTabs(TabStrip& tabs) {
    if (tabs.TabCount() == 0) return;
    const auto tab = Draw(1, tabs.TabCount());
    Add(2, Text("pestana " + tabs.Name(), {tab}), [&tabs, tab] { tabs.SelectedTab(tab); });
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
    Add(4, Text("fila " + grid.Name(), {row, col}), [&grid, row, col] {
      grid.Row(row);
      grid.Col(col);
    });
  }

  void AddRetivo(Retivo& grid) {
    if (grid.Cols() == 0) return;
    const auto col = Draw(0, grid.Cols() - 1);
    const auto width = Draw(0, 3000);
    // A column of no width has no border to drag.
    if (grid.ColWidth(col) != 0)
      Add(1, Text("ancho " + grid.Name(), {col, width}),
          [&grid, col, width] { grid.DragColumn(col, width); });
    Add(1, "alto " + grid.Name(), [&grid] { grid.DragRow(); });
    if (grid.Rows() <= grid.FixedRows() || !grid.EditsThroughList(col) || grid.ColWidth(col) == 0)
      return;
    const auto row = Draw(grid.FixedRows(), grid.Rows() - 1);
    const auto entry = static_cast<int>(random_.Below(100));
    Add(20, Text("editar " + grid.Name(), {row, col, entry}),
        [this_ = &form_, &grid, row, col, entry] { Edit(*this_, grid, row, col, entry); });
    Add(2, Text("lista " + grid.Name(), {row, col}),
        [&grid, row, col] { grid.BeginEdit(row, col); });
  }

  static void Edit(const Form& form, Retivo& grid, int row, int col, int entry) {
    grid.BeginEdit(row, col);
    if (!form.Visible() || !grid.Usable() || grid.ColWidth(grid.Col()) == 0) return;
    // One more than there are entries: none.
    const auto count = static_cast<int>(grid.Lista(grid.Col()).size());
    grid.EndEdit(entry % (count + 1) - 1);
  }

  void AddKeys() {
    static const std::array<int, 6> kCodes{kEnter, kEscape, kUp, kDown, 9, 65};
    const auto code = random_.OneOf(kCodes);
    Add(
        2, Text("tecla", {code}), [this_ = &form_, code] { PressKey(*this_, code); },
        code == kEnter);
  }

  static void PressKey(Form& form, int code) {
    const auto key = form.KeyDown(code);
    if (!form.Visible()) return;
    if (key == kEnter) PressButtonOf(form, &CommandButton::Default);
    if (key == kEscape) PressButtonOf(form, &CommandButton::Cancel);
  }

  /// Presses the button that answers to the key, if the user could.
  static void PressButtonOf(const Form& form, bool CommandButton::*answers) {
    for (auto* const control : form.Controls()) {
      auto* const button = dynamic_cast<CommandButton*>(control);
      if (button == nullptr || !(button->*answers) || !button->Usable()) continue;
      button->Press();
      return;
    }
  }

  Form& form_;
  Prng& random_;
  std::vector<Gesture> gestures_;
};

}  // namespace

RandomUser::RandomUser(Prng& random, History& history) : random_(random), history_(history) {
  Application::Instance().UseScreen(this);
}

RandomUser::~RandomUser() { Application::Instance().UseScreen(nullptr); }

Gesture RandomUser::Choose(Form& form) {
  // Dialogs that open dialogs nest: deeper down the user only wants out.
  constexpr std::size_t kDeepest = 50;
  if (onlyCloses_ || shows_.Depth() > kDeepest || gestures_ >= limit_) return Gesture::Close(form);
  auto gestures = PossibleGestures(form, random_).Collect();
  int total = 0;
  for (const auto& gesture : gestures) total += gesture.weight;
  auto left = static_cast<int>(random_.Below(static_cast<std::size_t>(total)));
  for (auto& gesture : gestures) {
    left -= gesture.weight;
    if (left < 0) return std::move(gesture);
  }
  return Gesture::Close(form);
}

void RandomUser::RunModal(Form& form) {
  const Shows::Running running(shows_, form.Name());
  onlooker_->Opened(form);
  form.Shown();
  onlooker_->Settle();
  while (form.Visible()) {
    const auto gesture = Choose(form);
    ++gestures_;
    shows_.Touch(form.Name());
    history_.Add(form.Name() + ": " + gesture.text);
    if (gesture.accepts) onlooker_->Accepting(form);
    gesture.act();
    onlooker_->Settle();
  }
}

void RandomUser::Loading(Form& form) {
  shows_.Touch(form.Name());
  history_.Add("carga " + form.Name());
  onlooker_->Loading(form);
}

void RandomUser::Message(MessageIcon /*icon*/, const std::string& /*title*/,
                         const std::string& text) {
  history_.Add("mensaje " + text);
  onlooker_->Told(text);
}

std::int32_t RandomUser::TextWidth(const Form& /*form*/, const std::string& text) {
  constexpr std::int32_t kCharacterWidth = 120;
  return static_cast<std::int32_t>(Utf8Length(text)) * kCharacterWidth;
}

}  // namespace quorvane::test
