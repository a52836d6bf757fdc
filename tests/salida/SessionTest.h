#pragma once

#include <QMessageBox>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
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
#include "tests/support/SmallSchool.h"
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

/// The small school with two pending subjects: one in section 321 that is graded in an ordinary and
/// in the final evaluation, and one in 331 that is locked by what a form which died has left.
class SessionTest : public testing::TestWithParam<Session> {
 protected:
  SessionTest() {
    school_.Sql(
        "UPDATE Usuario SET Nombre='Dirección', CodPerfil=0 WHERE IDUsuario=1;"
        "UPDATE Usuario SET Nombre='Ana Ruiz', CodPerfil=3 WHERE IDUsuario=2;"
        "UPDATE Usuario SET Nombre='Luis Gil', CodPerfil=3 WHERE IDUsuario=3;"
        "UPDATE Usuario SET Nombre='Sin perfil', CodPerfil=3 WHERE IDUsuario=4");
    school_.Registra(321, 1);
    const auto pending = school_.Pendiente(1, 3111, 1);
    school_.Evalua(pending, 1);
    school_.Evalua(pending, 4);
    school_.Registra(331, 5);
    school_.Evalua(school_.Pendiente(5, 3112, 1), 2);
    school_.Bloquea(2, 2, 3112, 3, kLeft);
    std::filesystem::copy_file(school_.Path(), atFirst_);
  }

  /// Plays the test's session on the school as it was at first.
  Played PlayAfresh(const Moment& moment = {}) {
    std::filesystem::copy_file(atFirst_, school_.Path(),
                               std::filesystem::copy_options::overwrite_existing);
    if (!GetParam().sql.empty()) school_.Sql(GetParam().sql);
    return Play(GetParam(), school_.Path(), moment);
  }

  /// Holds that no form has left anything, and that nothing was written but what an undisturbed
  /// session writes first, and then what gives back what the forms hold.
  void ExpectInOrder(const Played& played, const Played& undisturbed) const {
    EXPECT_EQ(school_.Rows("SELECT * FROM PublicacionPte"), std::vector<std::string>{});
    EXPECT_EQ(school_.Rows("SELECT codPublicacion FROM BloqueoPte"),
              std::vector<std::string>{std::to_string(kLeft)});
    const auto& writes = played.writes;
    const auto& usual = undisturbed.writes;
    const auto other =
        std::mismatch(writes.begin(), writes.end(), usual.begin(), usual.end()).first;
    const auto wrong = std::find_if_not(other, writes.end(), GivesBack);
    EXPECT_EQ(wrong == writes.end() ? "" : *wrong, "");
  }

  SmallSchool school_;

 private:
  static constexpr int kLeft = 77;  // the publication of the form that died

  static bool GivesBack(const std::string& statement) {
    return statement.find("DELETE FROM PublicacionPte WHERE IDPublicacionPte=") !=
               std::string::npos ||
           statement.find("DELETE FROM BloqueoPte WHERE codPublicacion=") != std::string::npos;
  }

  TempFolder folder_;
  std::string atFirst_ = folder_ / "escuela.sqlite";
};

}  // namespace quorvane::test
