#include "apps/programs/Terminal.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace quorvane {

Terminal::Terminal() : handle_(open("/dev/tty", O_RDWR | O_CLOEXEC)) {}

Terminal::~Terminal() {
  if (IsThere()) close(handle_);
}

void Terminal::Write(std::string_view text) const {
  static_cast<void>(!write(handle_, text.data(), text.size()));
}

std::string Terminal::ReadHidden(std::string_view question) const {
  termios before{};
  tcgetattr(handle_, &before);
  auto hidden = before;
  hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
  // An interruption arrives at once, as if it ended the line.
  hidden.c_cc[VEOL] = before.c_cc[VINTR];
  tcsetattr(handle_, TCSAFLUSH, &hidden);
  // Only now: who answers at once isn't shown either.
  Write(question);
  constexpr std::size_t kMost = 900;
  std::string line;
  auto interrupted = false;
  for (char letter = 0; Read(letter) && letter != '\n';) {
    interrupted = letter == static_cast<char>(before.c_cc[VINTR]);
    if (interrupted) break;
    if (line.size() < kMost) line += letter;
  }
  tcsetattr(handle_, TCSAFLUSH, &before);
  Write("\n");
  if (interrupted) std::raise(SIGINT);
  return line;
}

bool Terminal::Read(char& letter) const {
  ssize_t got = -1;
  do got = read(handle_, &letter, 1);
  while (got < 0 && errno == EINTR);
  return got == 1;
}

}  // namespace quorvane
