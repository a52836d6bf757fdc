#include "tests/guion/GuionTest.h"

#include <sstream>

#include "adapters/guion/host/Host.h"
#include "adapters/guion/language/ScriptParser.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/guion/player/Guion.h"
#include "platform/controls/FormInstance.h"
#include "tests/guion/TestForms.h"

namespace quorvane::test {

GuionTest::GuionTest() {
  frmPrueba::conexion = &centro;
  frmPrueba::alPulsar = nullptr;
  module.ObtenerDatos = [this](const auto& handedIn) { session = handedIn; };
  module.ActivarFormulario = [](std::uint8_t nodo) {
    if (nodo == 1) FormInstance<frmPrueba>::Get().ShowModal();
    if (nodo == 2) FormInstance<frmUno>::Get().ShowModal();
  };
}

std::vector<std::string> GuionTest::Play(const std::string& script) {
  std::istringstream text(script);
  std::ostringstream out;
  guion::EventPrinter events(out);
  guion::Host host(options, {centro, borrado, entrada, otra}, module, events);
  status = guion::Guion(guion::ParseScript(text), host, events).Play();
  std::istringstream printed(out.str());
  Lines lines;
  for (std::string line; std::getline(printed, line);)
    if (echo || !line.starts_with("> ")) lines.push_back(line);
  return lines;
}

std::vector<std::string> GuionTest::PlayIn(const std::string& script) {
  const auto opening = Play("nodo 1").size();
  auto lines = Play("nodo 1\n" + script);
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(opening));
  return lines;
}

}  // namespace quorvane::test
