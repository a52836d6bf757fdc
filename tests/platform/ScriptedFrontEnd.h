#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Form.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"

namespace quorvane::test {

/// A front end that notes what it is told, and lets the test act on each form that it shows.
class ScriptedFrontEnd : public FrontEnd {
 public:
  ScriptedFrontEnd() { Application::Instance().UseScreen(this); }
  ~ScriptedFrontEnd() override { Application::Instance().UseScreen(nullptr); }
  ScriptedFrontEnd(ScriptedFrontEnd&&) = delete;

  std::vector<std::string> told;
  /// The user, who acts on the form until it has gone.
  std::function<void(Form&)> user = [](Form& form) { form.CloseByUser(); };

  void RunModal(Form& form) override {
    told.push_back("muestra " + form.Name());
    form.Shown();
    if (form.Visible()) user(form);
    told.push_back("acaba " + form.Name());
  }
  void Loading(Form& form) override { told.push_back("carga " + form.Name()); }
  void Hidden(Form& form) override { told.push_back("oculta " + form.Name()); }
  void Unloading(Form& form) override { told.push_back("descarga " + form.Name()); }
  void Message(MessageIcon icon, const std::string& title, const std::string& text) override {
    told.push_back("mensaje " + std::to_string(static_cast<int>(icon)) + " " + title + ": " + text);
  }
  void Beep() override { told.emplace_back("pitido"); }
  void MousePointer(Pointer pointer) override {
    told.push_back("puntero " + std::to_string(static_cast<int>(pointer)));
  }
  std::int32_t TextWidth(const Form& /*form*/, const std::string& text) override {
    return static_cast<std::int32_t>(text.size());
  }
  void DoEvents() override { told.emplace_back("pinta"); }
  std::int32_t ScreenWidth() override { return 0; }
  std::int32_t ScreenHeight() override { return 0; }
};

}  // namespace quorvane::test
