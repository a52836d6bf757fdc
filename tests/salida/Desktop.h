#pragma once

#include <chrono>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>

#include "tests/teclado/XServer.h"

namespace quorvane::test {

/// Waits for what another process brings about. False when it takes longer than any machine needs.
inline bool WaitUntil(const std::function<bool()>& done) {
  using namespace std::chrono_literals;
  constexpr auto kPatience = 30s;
  const auto until = std::chrono::steady_clock::now() + kPatience;
  while (!done()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::sleep_for(20ms);
  }
  return true;
}

/// An X server with a window manager, and a user who has its keyboard and its task bar.
class Desktop {
 public:
  Desktop() {
    if (!WaitUntil([this] { return Run("wmctrl -m") == 0; }))
      throw std::runtime_error("no window manager");
  }

  /// The server's name, for DISPLAY.
  [[nodiscard]] const std::string& Display() const noexcept { return server_.Display(); }

  /// Waits until the window that has the keyboard bears that text in its title.
  [[nodiscard]] bool Shows(const std::string& title) const {
    return WaitUntil([this, &title] {
      return Run("sh -c 'xdotool getactivewindow getwindowname | grep -qF \"" + title + "\"'") == 0;
    });
  }
  /// Presses keys by their X names, parted by blanks.
  void Press(const std::string& keys) const {
    if (Run("xdotool key --clearmodifiers " + keys) != 0)
      throw std::runtime_error("no key: " + keys);
  }
  /// Closes the window with that text in its title as the task bar does.
  void Close(const std::string& title) const {
    if (Run("wmctrl -c '" + title + "'") != 0) throw std::runtime_error("no window: " + title);
  }

 private:
  [[nodiscard]] int Run(const std::string& command) const {
    return std::system(("DISPLAY=" + Display() + " " + command + " >/dev/null 2>&1").c_str());
  }

  XServer server_{true};
};

}  // namespace quorvane::test
