#pragma once

#include <QTimer>
#include <chrono>
#include <deque>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "adapters/qt/window/QtFrontEnd.h"
#include "tests/qt/Hands.h"

namespace quorvane::test {

/// A screen without a display, and a user whose steps are laid out beforehand: each window that
/// comes up takes the next. A test whose windows stay open longer than any user would is ended.
class ScreenTest : public ::testing::Test {
 public:
  ScreenTest();
  ~ScreenTest() override;
  ScreenTest(ScreenTest&&) = delete;

 protected:
  /// The windows of this test may stay open so long.
  void Patience(std::chrono::milliseconds patience) { patience_.start(patience); }
  /// What the user does in the next window, one after the other; the name of a button clicks it.
  template <class... Gestures>
  void Then(Gestures... gestures) {
    steps_.push_back(Steps(gestures...));
  }
  /// All steps have been taken, and no window stands.
  void ExpectDone() const;
  /// Shows the form, in which the steps are taken, to the end.
  void Show(Form& form);

  qt::QtFrontEnd screen;
  std::vector<std::string> messages;  ///< the texts of the messages, each answered at once

 private:
  std::deque<Gesture> steps_;
  QTimer patience_;
};

}  // namespace quorvane::test
