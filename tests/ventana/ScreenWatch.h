#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "adapters/qt/window/FormWindow.h"
#include "platform/controls/CommandButton.h"
#include "tests/ventana/GradeMemory.h"
#include "tests/ventana/RegisterMemory.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/School.h"
#include "tests/walk/Watch.h"

namespace quorvane::test {

/// Looks at the screen and at the school's tables while somebody works: what a form showed when it
/// was saved is what the school holds then. `Violation` when something is there that must not be.
class ScreenWatch : public Onlooker {
 public:
  /// Both outlive the watch.
  ScreenWatch(School& school, const WatchedScreen& screen)
      : screen_(screen), tables_(school), grades_(school, screen) {}

  /// A screen is about to be opened, after others may have been at the tables.
  void Begin(bool disturbed) {
    if (disturbed) registers_.Forget();
    tables_.Begin();
  }
  void Loading(Form& form) override { tables_.Loading(form); }
  void Opened(Form& form) override {
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
  void Accepting(const Form& form) override {
    tables_.Accepting(form);
    if (EntersGrades(form))
      grades_.Accept();
    else
      registers_.Accept(*screen_.ActiveWindow());
  }
  void Settle() override {
    SettleForms();
    tables_.Settle();
  }
  /// The screen has gone as screens go.
  void End() {
    Settle();
    tables_.End();
  }
  /// An error has come out, all forms are gone and what they left has been removed.
  void Failed(bool registerNode) {
    grades_.Close(false);
    registers_.Close(false);
    register_.reset();
    tables_.Failed(registerNode);
  }

  /// A form has loaded and is shown; the user's turn comes now.
  void Ready(const qt::FormWindow& window) {
    if (window.Model().Name() == kRegister) registers_.Look(window);
  }
  /// The user waits, having made one gesture or more since the last time.
  void Look(bool oneGesture) {
    Settle();
    grades_.Look(oneGesture);
  }
  [[nodiscard]] GradeMemory& Grades() noexcept { return grades_; }
  [[nodiscard]] const RegisterMemory& Registers() const noexcept { return registers_; }
  [[nodiscard]] std::set<std::string> Publications() const { return tables_.Publications(); }

 private:
  static constexpr std::string_view kRegister = "frmAlumnoPendiente";

  void WatchSaving(Form& form) {
    auto& button = dynamic_cast<CommandButton&>(*form.Find("cmdAceptar"));
    button.Click = [this, &form, save = button.Click] {
      Accepting(form);
      save();
    };
  }
  /// Looks at the tables when a form whose grades or students were remembered has gone.
  void SettleForms() {
    if (grades_.Watched() != nullptr && !grades_.Watched()->Loaded()) grades_.Close(true);
    if (const auto form = register_.lock(); form != nullptr && !form->Loaded()) {
      registers_.Close(true);
      register_.reset();
    }
  }

  const WatchedScreen& screen_;
  Watch tables_;
  GradeMemory grades_;
  RegisterMemory registers_;
  std::weak_ptr<Form> register_;
};

}  // namespace quorvane::test
