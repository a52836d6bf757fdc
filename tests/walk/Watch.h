#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/controls/Form.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/RegisterSave.h"
#include "tests/walk/School.h"
#include "tests/walk/Tables.h"

namespace quorvane::test {

/// Looks at the tables each time that a form has closed, and after each gesture that wrote
/// although nothing was to be written. `Violation` when something is there that must not be.
class Watch : public Onlooker {
 public:
  /// The school outlives the watch.
  explicit Watch(School& school) : school_(school) {}

  /// A screen is about to be opened: what the tables hold now is what they held before.
  void Begin();

  void Opened(Form& form) override;
  void Accepting(const Form& form) override;
  void Settle() override;
  /// The screen has gone as screens go.
  void End();
  /// An error has come out, all forms are gone and what they left has been removed.
  void Failed(bool registerNode);

  /// The publications that were there before the screen, by number.
  [[nodiscard]] std::set<std::string> Publications() const;

 private:
  void Rebase();
  void CheckClosed(bool whole);
  void CheckRegister(const Tables& after, bool whole);

  School& school_;
  std::optional<Tables> before_;
  std::shared_ptr<Form> open_;  ///< the register or the grade form that is open
  bool accepted_ = false;
  std::optional<RegisterSave> save_;
};

}  // namespace quorvane::test
