#include "apps/quorvane-escuela/NewPassword.h"

#include <iostream>
#include <unistd.h>

#include "apps/escuela/PasswordHash.h"
#include "apps/programs/Terminal.h"

namespace quorvane {
namespace {

std::optional<std::string> Line() {
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

}  // namespace

std::optional<std::string> AskNewPassword(const std::string& question) {
  if (isatty(STDIN_FILENO) != 1) {
    auto line = Line();
    if (!line) std::cerr << "quorvane-escuela: No ha llegado ninguna contraseña\n";
    return line;
  }
  const Terminal terminal;
  if (!terminal.IsThere()) {
    std::cerr << "quorvane-escuela: No hay un terminal en el que preguntar la contraseña\n";
    return std::nullopt;
  }
  auto password = terminal.ReadHidden(question + ": ");
  auto again = terminal.ReadHidden("Otra vez, para comprobarla: ");
  const auto same = again == password;
  Wipe(again);
  if (same) return password;
  Wipe(password);
  std::cerr << "quorvane-escuela: Las dos contraseñas no son la misma: no ha cambiado nada\n";
  return std::nullopt;
}

}  // namespace quorvane
