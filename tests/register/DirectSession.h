#pragma once

#include <deque>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/FrontEnd.h"
#include "tests/support/SmallSchool.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {

/// A user who acts on the models themselves, for what a script can't see. Each step acts on the
/// innermost form; when there are none left, what is open is closed with its X.
class StepScreen : public FrontEnd {
 public:
  using Step = std::function<void()>;

  void RunModal(Form& form) override;
  void Message(MessageIcon icon, const std::string& title, const std::string& text) override;
  void Beep() override {}
  void MousePointer(Pointer pointer) override { pointers.push_back(pointer); }
  std::int32_t TextWidth(const Form& form, const std::string& text) override;
  void DoEvents() override {}
  std::int32_t ScreenWidth() override { return 15360; }
  std::int32_t ScreenHeight() override { return 11520; }

  std::deque<Step> steps;
  std::vector<Pointer> pointers;
  std::vector<std::string> messages;
};

/// The one instance of a form.
template <class F>
F& The() {
  return FormInstance<F>::Get();
}

/// A session on a small school with a `StepScreen`, and the class of section 321 chosen. Forms and
/// components go with it.
class DirectSession {
 public:
  DirectSession();
  ~DirectSession();
  DirectSession(DirectSession&&) = delete;

  /// Opens the first screen, chooses the class, plays the steps on the register and leaves.
  void Play(std::vector<StepScreen::Step> steps);

  /// The student is on the register, with those subjects in this order.
  void Pendientes(int alumno, std::initializer_list<int> matDets) const;

  SmallSchool school;
  StepScreen screen;
  std::vector<std::string> statements;

 private:
  TestConnection centro_;
};

}  // namespace quorvane::test
