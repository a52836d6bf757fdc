#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/host/FrontEnd.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/Statements.h"
#include "tests/support/TestConnection.h"

namespace quorvane {
class ComboBox;
}  // namespace quorvane

namespace quorvane::test {

/// A screen without a user: each show of a form activates it and returns; it notes what was said.
class SilentScreen : public FrontEnd {
 public:
  /// Run whenever the module lets the screen be painted.
  std::function<void()> Painting;
  std::vector<std::string> messages;  ///< with their icon's number before them
  int beeps = 0;

  void RunModal(Form& form) override;
  void Message(MessageIcon icon, const std::string& title, const std::string& text) override;
  void Beep() override { ++beeps; }
  void MousePointer(Pointer pointer) override { pointer_ = pointer; }
  std::int32_t TextWidth(const Form& form, const std::string& text) override;
  void DoEvents() override {
    if (Painting) Painting();
  }
  std::int32_t ScreenWidth() override { return 20000; }
  std::int32_t ScreenHeight() override { return 12000; }

  [[nodiscard]] Pointer MousePointer() const noexcept { return pointer_; }

 private:
  Pointer pointer_ = Pointer::Default;
};

/// The module on a school with a screen without a user: for what no gesture reaches. All forms go
/// with the object.
class DirectSession {
 public:
  explicit DirectSession(const TestSchool& school);
  ~DirectSession();
  DirectSession(DirectSession&&) = delete;

  /// The statements since the last call, as a script prints them.
  Lines Statements() { return std::exchange(statements_, {}); }
  void Forget() { statements_.clear(); }
  /// Leaves an entry with that data as the only one of a list of step one, and selected.
  static void Choose(ComboBox& combo, int data);
  /// The number of the error that the action ends in; 0 without one.
  static std::int32_t ErrorOf(const std::function<void()>& action);

  SilentScreen screen;

 private:
  TestConnection centro_;
  Lines statements_;
};

}  // namespace quorvane::test
