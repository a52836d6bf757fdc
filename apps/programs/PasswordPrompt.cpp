#include "apps/programs/PasswordPrompt.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <termios.h>
#include <unistd.h>

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/Told.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

/// The terminal of the process, whatever its standard streams are.
class Terminal {
 public:
  Terminal() : handle_(open("/dev/tty", O_RDWR | O_CLOEXEC)) {}
  ~Terminal() {
    if (IsThere()) close(handle_);
  }
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  Terminal(Terminal&&) = delete;
  Terminal& operator=(Terminal&&) = delete;

  [[nodiscard]] bool IsThere() const noexcept { return handle_ >= 0; }

  void Write(std::string_view text) const {
    static_cast<void>(!write(handle_, text.data(), text.size()));
  }

  /// Asks, and gives a line that isn't shown, without its end. Ctrl+C ends the program, once the
  /// terminal shows again what is typed.
  [[nodiscard]] std::string ReadHidden(const std::string& question) const {
    termios before{};
    tcgetattr(handle_, &before);
    auto hidden = before;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
    tcsetattr(handle_, TCSAFLUSH, &hidden);
    // Only now: who answers at once isn't shown either.
    Write(question);
    constexpr std::size_t kMost = 900;
    std::string line;
    auto interrupted = false;
    for (char letter = 0; Read(letter) && letter != '\n' && line.size() < kMost;) {
      interrupted = interrupted || letter == static_cast<char>(before.c_cc[VINTR]);
      if (interrupted) break;
      line += letter;
    }
    tcsetattr(handle_, TCSAFLUSH, &before);
    Write("\n");
    if (interrupted) std::raise(SIGINT);
    return line;
  }

 private:
  bool Read(char& letter) const {
    ssize_t got = -1;
    do got = read(handle_, &letter, 1);
    while (got < 0 && errno == EINTR);
    return got == 1;
  }

  int handle_;
};

/// Whether a server has refused for the lack of a password, or for the wrong one.
bool WantsPassword(const std::string& refusal) {
  for (const auto* const sign : {"no password supplied", "[28P01]", "[28000]", "(18456)"})
    if (refusal.find(sign) != std::string::npos) return true;
  return false;
}

bool OpensAsItIs(const SchoolAddress& address) {
  try {
    return address.Open("") != nullptr;
  } catch (const RuntimeError& error) {
    // What else is wrong is told when it is opened for its work.
    return !WantsPassword(error.Description());
  }
}

}  // namespace

SchoolAddress WithPassword(const SchoolAddress& address) {
  odbc::ConnectionString string(address.Text());
  if (!address.IsOdbc() || string.Has("PWD") || string.Has("Password")) return address;
  const Terminal terminal;
  if (!terminal.IsThere() || OpensAsItIs(address)) return address;
  string.Set("PWD", terminal.ReadHidden("Contraseña de " + Told(address.Shown()) + ": "));
  return SchoolAddress::Odbc(string.Text());
}

}  // namespace quorvane
