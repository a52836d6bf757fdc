#include "tests/grades/DirectSession.h"

#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "platform/RuntimeError.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/Application.h"

namespace quorvane::test {
void SilentScreen::RunModal(Form& form) {
  // Step one has nobody to go on.
  if (form.Name() != "frmNotaManual1") form.Shown();
}

void SilentScreen::Message(MessageIcon icon, const std::string& title, const std::string& text) {
  messages.push_back(std::to_string(static_cast<int>(icon)) + " " + title + ": " + text);
}

std::int32_t SilentScreen::TextWidth(const Form& /*form*/, const std::string& text) {
  return static_cast<std::int32_t>(text.size()) * 120;
}

DirectSession::DirectSession(const TestSchool& school) : centro_(school.Path(), "centro") {
  centro_.Open();
  centro_.Observe([this](const Connection& connection, const std::string& statement) {
    statements_.push_back("sql " + connection.Name() + " " + statement);
  });
  gblnMostrarAnchoNotas = false;
  Application::Instance().UseScreen(&screen);
  auto& configuracion = cConfiguracion::Instancia();
  configuracion = cConfiguracion();
  configuracion.conLocalCentro = &centro_;
  configuracion.conLocalBorradoCentro = &centro_;
  configuracion.conLocalAppEntrada = &centro_;
  configuracion.intIDUsuario = 1;
  configuracion.Activa = true;
  configuracion.RutaAplicacion = "C:\\zendria";
}

DirectSession::~DirectSession() {
  FormInstances::DropAll();
  Application::Instance().UseScreen(nullptr);
  cConfiguracion::Instancia() = cConfiguracion();
}

void DirectSession::Choose(ComboBox& combo, int data) {
  combo.Click = nullptr;
  combo.Clear();
  combo.AddItem("elegido", data);
  combo.ListIndex(0);
}

std::int32_t DirectSession::ErrorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace quorvane::test
