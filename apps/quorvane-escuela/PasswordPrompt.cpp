#include "apps/quorvane-escuela/PasswordPrompt.h"

#include <csignal>
#include <iostream>
#include <termios.h>
#include <unistd.h>

#include "apps/escuela/PasswordHash.h"

namespace quorvane {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGTSTP};

termios before{};

/// Who leaves the question with Ctrl+C is to see again what he types.
void ShowAgainAndGo(int number) {
  tcsetattr(STDIN_FILENO, TCSANOW, &before);
  std::signal(number, SIG_DFL);
  std::raise(number);
}

/// The terminal shows nothing of what is typed while this lives.
class Unseen {
 public:
  Unseen() {
    tcgetattr(STDIN_FILENO, &before);
    for (const auto number : kSignals) std::signal(number, ShowAgainAndGo);
    auto quiet = before;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
  }
  ~Unseen() {
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &before);
    for (const auto number : kSignals) std::signal(number, SIG_DFL);
  }
  Unseen(const Unseen&) = delete;
  Unseen& operator=(const Unseen&) = delete;
  Unseen(Unseen&&) = delete;
  Unseen& operator=(Unseen&&) = delete;
};

std::optional<std::string> Line() {
  std::string line;
  if (!std::getline(std::cin, line)) return std::nullopt;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

std::optional<std::string> Typed(const std::string& question) {
  std::cerr << question << ": " << std::flush;
  const Unseen unseen;
  auto line = Line();
  std::cerr << '\n';
  return line;
}

}  // namespace

std::optional<std::string> AskNewPassword(const std::string& question) {
  const auto terminal = isatty(STDIN_FILENO) == 1;
  auto password = terminal ? Typed(question) : Line();
  if (!password) {
    std::cerr << "quorvane-escuela: No ha llegado ninguna contraseña\n";
    return std::nullopt;
  }
  if (!terminal) return password;
  auto again = Typed("Otra vez, para comprobarla");
  const auto same = again == password;
  if (again) Wipe(*again);
  if (same) return password;
  Wipe(*password);
  std::cerr << "quorvane-escuela: Las dos contraseñas no son la misma: no ha cambiado nada\n";
  return std::nullopt;
}

}  // namespace quorvane
