#pragma once

#include <QTableView>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/qt/window/FormWindow.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/FormInstance.h"
#include "register/frmPendientes.h"
#include "tests/ventana/GradeMemory.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/School.h"
#include "tests/walk/Violation.h"
#include "tests/walk/Watch.h"

namespace quorvane::test {

/// Remembers the list of students that a register showed when it was saved, to hold it against the
/// one that is shown when the register is opened again.
class RegisterMemory {
 public:
  /// The register has been opened, in a window that shows it, and nobody has touched it yet.
  void Look(const qt::FormWindow& window) {
    section_ = FormInstance<frmPendientes>::Get().cboSeccion.SelectedData();
    const auto saved = saved_.find(section_);
    if (saved == saved_.end()) return;
    ++reopened_;
    if (const auto shown = Students(window); saved->second != shown)
      throw Violation("El registro de la sección " + std::to_string(section_) +
                      " no muestra al reabrirlo lo que se grabó: [" + Joined(saved->second) +
                      "] y ahora [" + Joined(shown) + "]");
  }
  /// It is about to save what it shows.
  void Accept(const qt::FormWindow& window) { saved_[section_] = Students(window); }
  /// The form is gone; `whole` unless an error ended it.
  void Close(bool whole) {
    if (!whole) saved_.erase(section_);
  }
  /// Somebody else may have changed the registers.
  void Forget() { saved_.clear(); }
  /// How often a register has been opened again.
  [[nodiscard]] std::uint64_t Reopened() const noexcept { return reopened_; }

 private:
  static std::vector<std::string> Students(const qt::FormWindow& window) {
    const auto* cells = dynamic_cast<const QTableView*>(window.Widget("msgAlumnos"))->model();
    std::vector<std::string> names;
    for (int row = 0; row < cells->rowCount(); ++row)
      names.push_back(cells->index(row, 0).data().toString().toStdString());
    return names;
  }
  static std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const auto& name : names) text += text.empty() ? name : "; " + name;
    return text;
  }

  std::map<std::int32_t, std::vector<std::string>> saved_;  // by section
  std::int32_t section_ = 0;                                // of the register that is open
  std::uint64_t reopened_ = 0;
};

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
