#pragma once

#include <QTimer>
#include <chrono>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::test {

/// A screen without a display, and a user whose steps are laid out beforehand: each window that
/// comes up takes the next. A test whose windows stay open longer than any user would is ended.
class ScreenTest : public ::testing::Test {
 public:
  ScreenTest();
  ~ScreenTest() override;
  ScreenTest(ScreenTest&&) = delete;

 protected:
  using Step = std::function<void(qt::FormWindow&)>;

  /// The windows of this test may stay open so long.
  void Patience(std::chrono::milliseconds patience) { patience_.start(patience); }
  void Then(Step step) { steps_.push_back(std::move(step)); }
  void Then(const char* button);  ///< presses that one
  /// All steps have been taken, and no window stands.
  void ExpectDone() const;
  /// Shows the form, in which the steps are taken, to the end.
  void Show(Form& form);

  qt::QtFrontEnd screen;
  std::vector<std::string> messages;  ///< the texts of the messages, each answered at once

 private:
  std::deque<Step> steps_;
  QTimer patience_;
};

}  // namespace quorvane::test
