#include "apps/zendria/Attempt.h"

#include "apps/zendria/BusyCursor.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/NodeRunner.h"  // IWYU pragma: keep: a Failure is made of braces alone
#include "platform/RuntimeError.h"

namespace quorvane::zendria {

bool Attempt(QWidget* parent, const std::function<void()>& work) {
  Failure failure;
  try {
    const BusyCursor busy;
    work();
    return true;
  } catch (const RuntimeError& error) {
    failure = {error.Number(), QString::fromStdString(error.Description())};
  }
  ShowProblem(parent, failure);
  return false;
}

}  // namespace quorvane::zendria
