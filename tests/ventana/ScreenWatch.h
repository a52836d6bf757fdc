#pragma once

#include <memory>
#include <string>

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
  ScreenWatch(School& school, const WatchedScreen& screen);

  /// A screen is about to be opened, after others may have been at the tables.
  void Begin(bool disturbed);
  void Loading(Form& form) override;
  void Opened(Form& form) override;
  void Accepting(const Form& form) override;
  void Settle() override;
  /// The screen has gone as screens go.
  void End();
  /// An error has come out, all forms are gone and what they left has been removed.
  void Failed(bool registerNode);

  /// The user waits, having made one gesture or more since the last time.
  void Look(bool oneGesture);
  [[nodiscard]] GradeMemory& Grades() noexcept { return grades_; }
  [[nodiscard]] const RegisterMemory& Registers() const noexcept { return registers_; }
  [[nodiscard]] std::set<std::string> Publications() const { return tables_.Publications(); }

 private:
  void WatchSaving(Form& form);
  /// Looks at the tables when a form whose grades or students were remembered has gone.
  void SettleForms();

  const WatchedScreen& screen_;
  Watch tables_;
  GradeMemory grades_;
  RegisterMemory registers_;
  std::weak_ptr<Form> register_;
};

}  // namespace quorvane::test
