#pragma once

#include <deque>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/Application.h"
#include "register/frmPendientes.h"
#include "tests/platform/ScriptedFrontEnd.h"
#include "tests/register/RegisterStatements.h"
#include "tests/support/Opened.h"
#include "tests/support/SmallSchool.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {

/// A user who acts on the models themselves, for what a script can't see. Each step acts on the
/// innermost form; when there are none left, what is open is closed with its X.
class StepScreen : public ScriptedFrontEnd {
 public:
  using Step = std::function<void()>;

  void RunModal(Form& form) override {
    form.Shown();
    while (form.Visible()) {
      if (steps.empty()) {
        form.CloseByUser();
        continue;
      }
      const auto step = steps.front();
      steps.pop_front();
      step();
    }
  }
  void Message(MessageIcon /*icon*/, const std::string& /*title*/,
               const std::string& text) override {
    messages.push_back(text);
  }
  void MousePointer(Pointer pointer) override { pointers.push_back(pointer); }

  std::deque<Step> steps;
  std::vector<Pointer> pointers;
  Lines messages;
};

/// The one instance of a form.
template <class F>
F& The() {
  return FormInstance<F>::Get();
}

/// Presses that button of the form.
template <class F>
StepScreen::Step Press(CommandButton F::*button) {
  return [button] { (The<F>().*button).Press(); };
}

/// A session on a small school with a `StepScreen`, and the class of section 321 chosen. Forms and
/// components go with it.
class DirectSession {
 public:
  DirectSession() {
    centro_.Observe([this](const Connection&, const std::string& statement) {
      statements.push_back(statement);
    });
    auto& configuracion = cConfiguracion::Instancia();
    configuracion.conLocalCentro = configuracion.conLocalBorradoCentro = &centro_;
    configuracion.intIdCentro = 1;
    configuracion.RutaIcono = "C:\\iconos\\Zendria.ico";
  }
  ~DirectSession() {
    FormInstances::DropAll();
    Application::Instance().Objects().Reset();
    cConfiguracion::Instancia().conLocalCentro = nullptr;
    cConfiguracion::Instancia().conLocalBorradoCentro = nullptr;
  }
  DirectSession(DirectSession&&) = delete;

  /// Opens the first screen, chooses the class, plays the steps on the register and leaves.
  void Play(std::vector<StepScreen::Step> steps) {
    screen.steps.assign(steps.begin(), steps.end());
    screen.steps.emplace_front([] {
      auto& form = The<frmPendientes>();
      Choose(form.cboTEnsenanza, 3);
      Choose(form.cboCurso, 32);
      Choose(form.cboSeccion, 321);
      form.cmdAceptar.Press();
    });
    MostrarFrmPendientes();
  }

  /// The student is on the register, with those subjects in this order.
  void Pendientes(int alumno, std::initializer_list<int> matDets) const {
    school.Registra(321, alumno);
    for (int orden = 0; const auto matDet : matDets)
      static_cast<void>(school.Pendiente(alumno, matDet, ++orden));
  }

  SmallSchool school;
  StepScreen screen;
  Lines statements;

 private:
  static void Choose(ComboBox& list, std::int32_t data) {
    for (int i = 0; i < list.ListCount(); ++i)
      if (list.ItemData(i) == data) list.ListIndex(i);
  }

  Opened<TestConnection> centro_{school.Path(), "centro"};
};

}  // namespace quorvane::test
