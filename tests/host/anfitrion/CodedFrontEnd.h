#pragma once

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>

#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/host/FrontEnd.h"

inline void Expect(bool fulfilled, const std::string& expectation) {
  if (!fulfilled) throw std::runtime_error("no se cumple: " + expectation);
}

/// The control of that name and kind, which the user must be able to use now.
template <class T>
T& Usable(quorvane::Form& form, const std::string& name) {
  auto* const control = dynamic_cast<T*>(form.Find(name));
  Expect(control != nullptr, form.Name() + " tiene " + name);
  Expect(control->Usable(), name + " se puede usar");
  return *control;
}

inline void Pick(quorvane::Form& form, const std::string& name, const std::string& entry) {
  auto& list = Usable<quorvane::ComboBox>(form, name);
  for (int index = 0; index < list.ListCount(); ++index)
    if (list.List(index) == entry) return list.ListIndex(index);
  Expect(false, name + " ofrece " + entry);
}

inline void Press(quorvane::Form& form, const std::string& name) {
  Usable<quorvane::CommandButton>(form, name).Press();
}

/// A front end in which a list of steps takes the user's place: each is told the form that is open.
class CodedFrontEnd : public quorvane::FrontEnd {
 public:
  struct Step {
    std::string form;
    std::function<void(quorvane::Form&)> act;
  };

  std::deque<Step> steps;
  std::string messages;

  void RunModal(quorvane::Form& form) override {
    form.Shown();
    while (form.Visible()) {
      Expect(!steps.empty(), "queda un paso para " + form.Name());
      const auto step = steps.front();
      steps.pop_front();
      Expect(step.form == form.Name(), "se abre " + step.form + ", no " + form.Name());
      step.act(form);
    }
  }
  void Message(quorvane::MessageIcon /*icon*/, const std::string& title,
               const std::string& text) override {
    messages += title + ": " + text + '\n';
  }
  void Beep() override {}
  void MousePointer(quorvane::Pointer /*pointer*/) override {}
  std::int32_t TextWidth(const quorvane::Form& /*form*/, const std::string& text) override {
    return static_cast<std::int32_t>(text.size()) * 100;
  }
  void DoEvents() override {}
  std::int32_t ScreenWidth() override { return 15360; }
  std::int32_t ScreenHeight() override { return 11520; }
};
