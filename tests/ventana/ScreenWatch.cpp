#include "tests/ventana/ScreenWatch.h"

#include <string_view>

#include "adapters/qt/window/FormWindow.h"
#include "platform/controls/CommandButton.h"

namespace quorvane::test {
namespace {

constexpr std::string_view kRegister = "frmAlumnoPendiente";

}  // namespace

ScreenWatch::ScreenWatch(School& school, const WatchedScreen& screen)
    : screen_(screen), tables_(school), grades_(school, screen) {}

void ScreenWatch::Begin(bool disturbed) {
  if (disturbed) registers_.Forget();
  tables_.Begin();
}

void ScreenWatch::Loading(Form& form) { tables_.Loading(form); }

void ScreenWatch::Opened(Form& form) {
  SettleForms();
  tables_.Opened(form);
  if (EntersGrades(form)) {
    grades_.Open(form);
    WatchSaving(form);
  } else if (form.Name() == kRegister) {
    register_ = form.shared_from_this();
    WatchSaving(form);
  }
}

void ScreenWatch::WatchSaving(Form& form) {
  auto& button = dynamic_cast<CommandButton&>(*form.Find("cmdAceptar"));
  button.Click = [this, &form, save = button.Click] {
    Accepting(form);
    save();
  };
}

void ScreenWatch::Accepting(const Form& form) {
  tables_.Accepting(form);
  if (EntersGrades(form))
    grades_.Accept();
  else
    registers_.Accept(*screen_.ActiveWindow());
}

void ScreenWatch::Settle() {
  SettleForms();
  tables_.Settle();
}

void ScreenWatch::SettleForms() {
  if (grades_.Watched() != nullptr && !grades_.Watched()->Loaded()) grades_.Close(true);
  if (const auto form = register_.lock(); form != nullptr && !form->Loaded()) {
    registers_.Close(true);
    register_.reset();
  }
}

void ScreenWatch::End() {
  Settle();
  tables_.End();
}

void ScreenWatch::Failed(bool registerNode) {
  grades_.Close(false);
  registers_.Close(false);
  register_.reset();
  tables_.Failed(registerNode);
}

void ScreenWatch::Look(bool oneGesture) {
  Settle();
  grades_.Look(oneGesture);
  const auto& window = *screen_.ActiveWindow();
  if (window.Model().Name() == kRegister) registers_.Look(window);
}

}  // namespace quorvane::test
