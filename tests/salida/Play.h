#pragma once

#include <QMessageBox>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "apps/zendria/MainWindow.h"
#include "apps/zendria/Program.h"
#include "tests/salida/Moment.h"
#include "tests/salida/Session.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"
#include "tests/zendria/Robot.h"

namespace quorvane::test {

/// How a process has ended, and what it had executed by then.
struct Played {
  int signal = 0;  ///< that it ended by; 0 for none
  int status = 0;  ///< when by none
  std::string errors;
  std::vector<std::string> writes;  ///< the module's statements that write, in their order
  std::string rescued;  ///< the file with the grades that weren't saved, if there is one
};

inline constexpr const char* kDataFolder = "datos";

/// Qt's remarks on what a platform without windows can't do say nothing about the program.
inline void TellAllElse(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                        const QString& text) {
  if (text.startsWith("This plugin does not support")) return;
  std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

inline void Attend(const Session& session, Robot& user, qt::QtFrontEnd& screen,
                   zendria::MainWindow& window) {
  screen.MessageShown = [](QMessageBox& box) {
    if (!AtRest()) box.accept();
  };
  session.prepare(user);
  auto* const door = new QTimer(&window);
  QObject::connect(door, &QTimer::timeout, &window, [&session, &window, door] {
    if (!window.HasSchool()) return;
    door->stop();
    BeginCounting();
    session.begin(window);
    // Left by itself, the program ends as its user closes it.
    if (!AtRest()) window.close();
  });
  door->start(1);
}

[[noreturn]] inline void BeProgram(const Session& session, const std::string& school,
                                   const TempFolder& folder, const Moment& moment) {
  constexpr unsigned kPatience = 30;  // seconds
  // One that hangs ends by this.
  alarm(kPatience);
  for (const auto signal : {SIGHUP, SIGINT, SIGTERM}) std::signal(signal, SIG_DFL);
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  setenv("QUORVANE_TRAZA", (folder / "traza").c_str(), 1);
  setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
  setenv("XDG_RUNTIME_DIR", (folder / ".").c_str(), 1);
  setenv("XDG_DATA_HOME", (folder / kDataFolder).c_str(), 1);
  if (std::freopen((folder / "errores").c_str(), "w", stderr) == nullptr ||
      std::freopen("/dev/null", "w", stdout) == nullptr)
    _exit(1);
  // What ends by a signal writes nothing out any more.
  std::setvbuf(stderr, nullptr, _IONBF, 0);
  qInstallMessageHandler(TellAllElse);
  Expect(moment);
  std::vector<std::string> words{"zendria", school};
  words.insert(words.end(), session.arguments.begin(), session.arguments.end());
  std::vector<char*> arguments;
  for (auto& word : words) arguments.push_back(word.data());
  std::unique_ptr<Robot> user;
  const auto status =
      zendria::RunProgram(static_cast<int>(arguments.size()), arguments.data(),
                          [&session, &user](qt::QtFrontEnd& screen, zendria::MainWindow& window) {
                            user = std::make_unique<Robot>(screen);
                            Attend(session, *user, screen, window);
                          });
  _exit(status);
}

/// What lies in the folder or below it.
inline std::string AllContents(const std::filesystem::path& folder) {
  std::string all;
  std::error_code missing;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, missing))
    if (entry.is_regular_file()) all += Content(entry.path());
  return all;
}

inline std::vector<std::string> Writes(const std::string& trace) {
  std::vector<std::string> found;
  std::ifstream lines(trace);
  for (std::string line; std::getline(lines, line);)
    if (line.find(" SELECT ") == std::string::npos) found.push_back(line);
  return found;
}

/// The whole program in a process of its own, with somebody at it who plays the session on the
/// school's file. The folder has what the program keeps for its user, from one play to the next.
inline Played PlayIn(const TempFolder& folder, const Session& session, const std::string& school,
                     const Moment& moment = {}) {
  std::filesystem::remove(folder / "traza");
  const auto process = fork();
  if (process < 0) throw std::runtime_error("no process");
  if (process == 0) BeProgram(session, school, folder, moment);
  int ended = 0;
  waitpid(process, &ended, 0);
  return {WIFSIGNALED(ended) ? WTERMSIG(ended) : 0, WIFEXITED(ended) ? WEXITSTATUS(ended) : 0,
          Content(folder / "errores"), Writes(folder / "traza"), AllContents(folder / kDataFolder)};
}

/// The same for somebody who has never used the program.
inline Played Play(const Session& session, const std::string& school, const Moment& moment = {}) {
  return PlayIn(TempFolder(), session, school, moment);
}

}  // namespace quorvane::test
