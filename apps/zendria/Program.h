#pragma once

#include <functional>

namespace quorvane::qt {
class QtFrontEnd;
}

namespace quorvane::zendria {

class MainWindow;

/// Told the program's screen and window once they stand and before a school is opened: the place
/// for one who acts in the user's stead.
using Started = std::function<void(qt::QtFrontEnd& screen, MainWindow& window)>;

/// The program, from its arguments to its exit status. When a signal has asked it to end, it ends
/// by that signal and doesn't return. Once a process.
int RunProgram(int argc, char** argv, const Started& started = {});

}  // namespace quorvane::zendria
