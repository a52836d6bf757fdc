#include "tests/salida/Desktop.h"

#include <cstdlib>
#include <stdexcept>

#include "tests/salida/Wait.h"

namespace quorvane::test {

Desktop::Desktop() {
  if (!WaitUntil([this] { return Run("wmctrl -m") == 0; }))
    throw std::runtime_error("no window manager");
}

int Desktop::Run(const std::string& command) const {
  return std::system(("DISPLAY=" + Display() + " " + command + " >/dev/null 2>&1").c_str());
}

bool Desktop::Shows(const std::string& title) const {
  return WaitUntil([this, &title] {
    return Run("sh -c 'xdotool getactivewindow getwindowname | grep -qF \"" + title + "\"'") == 0;
  });
}

void Desktop::Press(const std::string& keys) const {
  if (Run("xdotool key --clearmodifiers " + keys) != 0) throw std::runtime_error("no key: " + keys);
}

void Desktop::Close(const std::string& title) const {
  if (Run("wmctrl -c '" + title + "'") != 0) throw std::runtime_error("no window: " + title);
}

}  // namespace quorvane::test
