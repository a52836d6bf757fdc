#pragma once

#include <string>

#include "tests/teclado/XServer.h"

namespace quorvane::test {

/// An X server with a window manager, and a user who has its keyboard and its task bar.
class Desktop {
 public:
  Desktop();

  /// The server's name, for DISPLAY.
  [[nodiscard]] const std::string& Display() const noexcept { return server_.Display(); }

  /// Waits until the window that has the keyboard bears that text in its title.
  [[nodiscard]] bool Shows(const std::string& title) const;
  /// Presses keys by their X names, parted by blanks.
  void Press(const std::string& keys) const;
  /// Closes the window with that text in its title as the task bar does.
  void Close(const std::string& title) const;

 private:
  [[nodiscard]] int Run(const std::string& command) const;

  XServer server_{true};
};

}  // namespace quorvane::test
