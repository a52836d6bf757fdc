#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "platform/controls/Form.h"
#include "platform/controls/FormInstance.h"
#include "register/frmAlumnoPendiente.h"
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
    Rebase();
  }

  void Opened(Form& form) override {
    if (IsRegister(form)) {
      CheckRegisterLoad(!school_.HasFailed());
      open_ = form.shared_from_this();
      return;
    }
    Settle();
    if (EntersGrades(form)) open_ = form.shared_from_this();
  }

  void Accepting(const Form& form) override {
    if (&form != open_.get()) return;
    accepted_ = true;
    if (IsRegister(form))
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
    if (open_ != nullptr)
      CheckClosed(false);
    else if (registerNode)
      CheckRegisterLoad(false);
    else
      CheckGrades(false);
  }

  /// The publications that were there before the screen, by number.
  [[nodiscard]] std::set<std::string> Publications() const {
    std::set<std::string> numbers;
    for (const auto& row : before_->publications) numbers.insert(row.substr(0, row.find('|')));
    return numbers;
  }

 private:
  void Rebase() {
    accepted_ = false;
    save_.reset();
    before_.emplace(school_.Unwatched());
    static_cast<void>(school_.TakeWritten());
  }

  void CheckClosed(bool whole) {
    const auto form = std::exchange(open_, nullptr);
    if (IsRegister(*form))
      CheckRegister(whole);
    else
      CheckGrades(whole);
  }

  void CheckRegisterLoad(bool whole) {
    const Tables after(school_.Unwatched());
    RegisterRules(school_.Unwatched(), *before_, after, whole).Check();
    Rebase();
  }

  void CheckGrades(bool whole) {
    const Tables after(school_.Unwatched());
    GradeRules(school_.Unwatched(), *before_, after, {accepted_, whole}).Check();
    Rebase();
  }

  void CheckRegister(bool whole) {
    const Tables after(school_.Unwatched());
    RequireSame("El registro ha tocado bloqueos:",
                Difference(before_->publications, after.publications) +
                    Difference(before_->locks, after.locks));
    if (save_)
      save_->Check(after, whole);
    else if (school_.TakeWritten())
      throw Violation("El registro ha escrito sin grabarse");
    Rebase();
  }

  School& school_;
  std::optional<Tables> before_;
  std::shared_ptr<Form> open_;  ///< the register or the grade form that is open
  bool accepted_ = false;
  std::optional<RegisterSave> save_;  ///< of the register that is about to save
};

}  // namespace quorvane::test
