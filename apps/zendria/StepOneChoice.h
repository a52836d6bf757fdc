#pragma once

#include <cstdint>
#include <functional>

#include "apps/zendria/GradeRoute.h"

namespace quorvane {
class Connection;
namespace qt {
class FormWindow;
class QtFrontEnd;
}  // namespace qt
}  // namespace quorvane

namespace quorvane::zendria {

/// While it lives, the first screen of grades that comes up is told what is to be graded, by the
/// gestures by which a user would choose it there; what he may not choose stays unchosen. A student
/// who is meant is chosen in the screen that has him, the second where the first asks for none.
class StepOneChoice {
 public:
  /// `school` is asked at the making alone; the engine's errors. `screen` outlives it.
  StepOneChoice(qt::QtFrontEnd& screen, Connection& school, const GradeRoute& route);
  ~StepOneChoice();
  StepOneChoice(const StepOneChoice&) = delete;
  StepOneChoice& operator=(const StepOneChoice&) = delete;
  StepOneChoice(StepOneChoice&&) = delete;
  StepOneChoice& operator=(StepOneChoice&&) = delete;

 private:
  void Choose(qt::FormWindow& window);
  void ChooseStudent(qt::FormWindow& window);

  qt::QtFrontEnd& screen_;
  std::function<void(qt::FormWindow&)> before_;
  GradeRoute route_;
  std::int32_t course_ = 0;
  std::int32_t teaching_ = 0;
  bool chosen_ = false;
  bool studentChosen_ = false;
};

}  // namespace quorvane::zendria
