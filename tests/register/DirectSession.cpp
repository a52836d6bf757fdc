#include "tests/register/DirectSession.h"

#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "platform/host/Application.h"
#include "register/frmPendientes.h"

namespace quorvane::test {
namespace {

void Choose(ComboBox& list, std::int32_t data) {
  for (int i = 0; i < list.ListCount(); ++i)
    if (list.ItemData(i) == data) list.ListIndex(i);
}

}  // namespace

void StepScreen::RunModal(Form& form) {
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

void StepScreen::Message(MessageIcon /*icon*/, const std::string& /*title*/,
                         const std::string& text) {
  messages.push_back(text);
}

std::int32_t StepScreen::TextWidth(const Form& /*form*/, const std::string& text) {
  return static_cast<std::int32_t>(text.size()) * 100;
}

DirectSession::DirectSession() : centro_(school.Path(), "centro") {
  centro_.Open();
  centro_.Observe(
      [this](const Connection&, const std::string& statement) { statements.push_back(statement); });
  auto& configuracion = cConfiguracion::Instancia();
  configuracion.conLocalCentro = &centro_;
  configuracion.conLocalBorradoCentro = &centro_;
  configuracion.intIdCentro = 1;
  configuracion.RutaIcono = "C:\\iconos\\Zendria.ico";
  Application::Instance().UseScreen(&screen);
}

DirectSession::~DirectSession() {
  FormInstances::DropAll();
  Application::Instance().Objects().Reset();
  Application::Instance().UseScreen(nullptr);
  cConfiguracion::Instancia().conLocalCentro = nullptr;
  cConfiguracion::Instancia().conLocalBorradoCentro = nullptr;
}

void DirectSession::Pendientes(int alumno, std::initializer_list<int> matDets) const {
  school.Registra(321, alumno);
  for (int orden = 0; const auto matDet : matDets)
    static_cast<void>(school.Pendiente(alumno, matDet, ++orden));
}

void DirectSession::Play(std::vector<StepScreen::Step> steps) {
  screen.steps.assign(steps.begin(), steps.end());
  screen.steps.emplace_front([] {
    auto& form = FormInstance<frmPendientes>::Get();
    Choose(form.cboTEnsenanza, 3);
    Choose(form.cboCurso, 32);
    Choose(form.cboSeccion, 321);
    form.cmdAceptar.Press();
  });
  MostrarFrmPendientes();
}

}  // namespace quorvane::test
