#include "apps/zendria/Program.h"

#include <QApplication>
#include <QTimer>
#include <cstdlib>
#include <iostream>
#include <optional>

#include "adapters/odbc/Waiting.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/escuela/Told.h"
#include "apps/zendria/CommandLine.h"
#include "apps/zendria/Departure.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/HostComponents.h"
#include "apps/zendria/MainWindow.h"
#include "apps/zendria/NodeRunner.h"
#include "apps/zendria/Preferences.h"
#include "apps/zendria/SchoolPlace.h"
#include "apps/zendria/SpanishTexts.h"
#include "apps/zendria/VisibleStyle.h"
#include "platform/controls/FormInstances.h"
#include "platform/host/Application.h"
#include "platform/text/VisibleText.h"

namespace quorvane::zendria {
namespace {

/// How the program ends: by its status, unless a signal asked for it.
struct Ending {
  ExitStatus status = ExitStatus::Ok;
  std::optional<int> signal;
};

bool IsSet(const char* variable) {
  const auto* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool HasDisplay() {
  return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("QT_QPA_PLATFORM");
}

QString PlaceOf(const CommandLine& line) {
  return line.odbc.empty() ? QString::fromStdString(line.file)
                           : OdbcPlace(QString::fromStdString(line.odbc));
}

/// False when something failed after the program was told to end.
bool TellFailures(const qt::QtFrontEnd& screen) {
  for (const auto& failure : screen.LeavingFailures())
    std::cerr << "zendria: al salir: " << Told(FailureHeading(FailureOf(failure)).toStdString())
              << '\n';
  return screen.LeavingFailures().empty();
}

/// Nobody is there to be asked: where the grades are stands where the program's failures stand.
void TellRescued(const RescuedGrades& rescued) {
  if (rescued.file.isEmpty())
    for (const auto& line : rescued.text.split('\n'))
      std::cerr << VisibleText(line.toStdString()) << '\n';
  else
    std::cerr << "zendria: notas sin guardar: " << Told(rescued.file.toStdString()) << '\n';
}

Ending RunWindow(const CommandLine& line, const Started& started) {
  qt::QtFrontEnd screen;
  Application::Instance().UseScreen(&screen);
  RegisterHostComponents();
  Preferences preferences;
  Ending ending;
  {
    Departure departure(screen);
    MainWindow window(screen, preferences, PendingScreens());
    window.Leave = [&departure] { departure.Leave(); };
    window.Rescued = TellRescued;
    screen.HostWindow(&window);
    odbc::WhileWaiting([&screen] { return screen.Await(); });
    window.show();
    if (started) started(screen, window);
    const auto place = PlaceOf(line);
    // From inside the loop, which a dialog on the way must be able to end.
    if (!place.isEmpty())
      QTimer::singleShot(0, &window, [&] { window.OpenSchool(place, line.user); });
    QApplication::exec();
    ending.signal = departure.Signal();
    if (!place.isEmpty() && !window.HasSchool()) ending.status = ExitStatus::NoSchool;
    // The windows' sizes are kept as when the user closes them.
    if (window.isVisible()) window.close();
    odbc::WhileWaiting({});
    screen.HostWindow(nullptr);
  }
  FormInstances::DropAll();
  if (!TellFailures(screen)) ending = {ExitStatus::LeftBadly, std::nullopt};
  Application::Instance().UseScreen(nullptr);
  return ending;
}

Ending Run(int argc, char** argv, const Started& started) {
  auto status = ExitStatus::Ok;
  const auto line = ReadCommandLine(argc, argv, std::cout, std::cerr, status);
  if (!line) return {status, std::nullopt};
  if (!HasDisplay()) {
    std::cerr << "zendria: no hay pantalla en la que abrir la ventana.\n";
    return {ExitStatus::NoDisplay, std::nullopt};
  }
  const QApplication application(argc, argv);
  QApplication::setApplicationName("Zendria");
  QApplication::setStyle(new VisibleStyle);
  UseSpanishTexts();
  return RunWindow(*line, started);
}

}  // namespace

int RunProgram(int argc, char** argv, const Started& started) {
  const auto ending = Run(argc, argv, started);
  if (ending.signal) EndBySignal(*ending.signal);
  return static_cast<int>(ending.status);
}

}  // namespace quorvane::zendria
