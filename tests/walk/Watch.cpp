#include "tests/walk/Watch.h"

#include <string_view>

#include "platform/controls/FormInstance.h"
#include "register/frmPendientes.h"
#include "tests/walk/GradeRules.h"
#include "tests/walk/RegisterRules.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

constexpr std::string_view kRegister = "frmAlumnoPendiente";

/// The forms of step two. Those of step one bear the same names with a 1 behind.
bool EntersGrades(const Form& form) {
  return form.Name().starts_with("frmNota") && !form.Name().ends_with("1");
}

}  // namespace

void Watch::Rebase() {
  before_.emplace(school_.Unwatched());
  static_cast<void>(school_.TakeWritten());
}

void Watch::Begin() {
  open_.reset();
  accepted_ = false;
  save_.reset();
  Rebase();
}

void Watch::Opened(Form& form) {
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

void Watch::Accepting(const Form& form) {
  if (&form != open_.get()) return;
  accepted_ = true;
  if (form.Name() == kRegister)
    save_.emplace(*before_, dynamic_cast<const frmAlumnoPendiente&>(form),
                  FormInstance<frmPendientes>::Get().cboSeccion.SelectedData());
}

void Watch::Settle() {
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

void Watch::CheckClosed(bool whole) {
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

void Watch::CheckRegister(const Tables& after, bool whole) {
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

void Watch::End() {
  Settle();
  if (open_ != nullptr) throw Violation("La pantalla se ha ido y queda cargado " + open_->Name());
}

void Watch::Failed(bool registerNode) {
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

std::set<std::string> Watch::Publications() const {
  std::set<std::string> numbers;
  for (const auto& row : before_->publications) numbers.insert(row.substr(0, row.find('|')));
  return numbers;
}

}  // namespace quorvane::test
