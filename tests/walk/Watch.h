#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/Form.h"
#include "platform/controls/FormInstance.h"
#include "register/frmPendientes.h"
#include "tests/walk/GradeRules.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/RegisterRules.h"
#include "tests/walk/RegisterSave.h"
#include "tests/walk/School.h"
#include "tests/walk/Tables.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {

/// Looks at the tables each time that a form has closed, and after each gesture that wrote
/// although nothing was to be written. `Violation` when something is there that must not be.
class Watch : public Onlooker {
 public:
  /// The school outlives the watch.
  explicit Watch(School& school) : school_(school) {}

  /// A screen is about to be opened: what the tables hold now is what they held before.
  void Begin() {
    open_.reset();
    accepted_ = false;
    save_.reset();
    Rebase();
  }

  void Opened(Form& form) override {
    if (form.Name() == kRegister) {
      const Tables after(school_.Unwatched());
      CheckRegisterLoad(school_.Unwatched(), *before_, after, !school_.HasFailed());
      open_ = form.shared_from_this();
      Rebase();
      return;
    }
    Settle();
    if (EntersGrades(form)) open_ = form.shared_from_this();
  }
  void Accepting(const Form& form) override {
    if (&form != open_.get()) return;
    accepted_ = true;
    if (form.Name() == kRegister)
      save_.emplace(*before_, dynamic_cast<const frmAlumnoPendiente&>(form),
                    FormInstance<frmPendientes>::Get().cboSeccion.SelectedData());
  }

  void Settle() override {
    if (open_ != nullptr && !open_->Loaded()) {
      CheckClosed(!school_.HasFailed());
      return;
    }
    accepted_ = false;
    save_.reset();
    // A grade form writes as soon as it stands on the screen: that is looked at when it closes.
    if (open_ != nullptr && EntersGrades(*open_)) return;
    if (!school_.TakeWritten()) return;
    throw Violation(open_ == nullptr ? "Se ha escrito sin que nada esté abierto"
                                     : "El registro ha escrito antes de grabarse");
  }
  /// The screen has gone as screens go.
  void End() {
    Settle();
    if (open_ != nullptr) throw Violation("La pantalla se ha ido y queda cargado " + open_->Name());
  }

  /// An error has come out, all forms are gone and what they left has been removed.
  void Failed(bool registerNode) {
    if (open_ != nullptr) {
      CheckClosed(false);
      return;
    }
    const Tables after(school_.Unwatched());
    if (registerNode)
      CheckRegisterLoad(school_.Unwatched(), *before_, after, false);
    else
      CheckGradeEntry(school_.Unwatched(), *before_, after, {false, false});
    Rebase();
  }

  /// The publications that were there before the screen, by number.
  [[nodiscard]] std::set<std::string> Publications() const {
    std::set<std::string> numbers;
    for (const auto& row : before_->publications) numbers.insert(row.substr(0, row.find('|')));
    return numbers;
  }

 private:
  static constexpr std::string_view kRegister = "frmAlumnoPendiente";

  /// The forms of step two. Those of step one bear the same names with a 1 behind.
  static bool EntersGrades(const Form& form) {
    return form.Name().starts_with("frmNota") && !form.Name().ends_with("1");
  }

  void Rebase() {
    before_.emplace(school_.Unwatched());
    static_cast<void>(school_.TakeWritten());
  }

  void CheckClosed(bool whole) {
    const auto form = std::move(open_);
    open_.reset();
    const Tables after(school_.Unwatched());
    if (form->Name() == kRegister)
      CheckRegister(after, whole);
    else
      CheckGradeEntry(school_.Unwatched(), *before_, after, {accepted_, whole});
    accepted_ = false;
    save_.reset();
    Rebase();
  }

  void CheckRegister(const Tables& after, bool whole) {
    const auto same = Difference(before_->publications, after.publications) +
                      Difference(before_->locks, after.locks);
    if (!same.empty()) throw Violation("El registro ha tocado bloqueos:" + same);
    if (!save_) {
      if (school_.TakeWritten()) throw Violation("El registro ha escrito sin grabarse");
    } else if (whole) {
      save_->Check(after);
    } else {
      save_->CheckInterrupted(after);
    }
  }

  School& school_;
  std::optional<Tables> before_;
  std::shared_ptr<Form> open_;  ///< the register or the grade form that is open
  bool accepted_ = false;
  std::optional<RegisterSave> save_;
};

}  // namespace quorvane::test
