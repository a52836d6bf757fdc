#pragma once

#include <functional>
#include <memory>

#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::zendria {

class School;
struct User;

/// The lines that the desktop puts over a form: over the grades section, evaluation and what is
/// walked; over step one why a list is empty; over both which subjects are missing because
/// somebody's form holds them. Where the school can't be read, what it would tell is left out.
class FormLines {
 public:
  /// Answers for the forms that `screen` shows. `problem` is asked what else there is to be told
  /// over the grades.
  FormLines(qt::QtFrontEnd& screen, std::function<QString()> problem);

  /// A screen of the module opens. Both outlive it.
  void Begin(School& school, const User& user);
  /// It has gone.
  void End();

  /// What was read of the school may be otherwise by now.
  void ReadAgain();

  /// What stands over that form; for those who print it too.
  [[nodiscard]] qt::FormHeading Of(const Form& form) const;

 private:
  class Teller;

  std::shared_ptr<Teller> teller_;  // the front end's hook has it too: it may live longer
};

}  // namespace quorvane::zendria
