#include <QApplication>
#include <cstdlib>
#include <iostream>

#include "adapters/qt/QtFrontEnd.h"
#include "apps/zendria/CommandLine.h"
#include "apps/zendria/HostComponents.h"
#include "apps/zendria/MainWindow.h"
#include "apps/zendria/Preferences.h"
#include "apps/zendria/SchoolPlace.h"
#include "platform/Application.h"

namespace {

using namespace quorvane;
using zendria::ExitStatus;

bool IsSet(const char* variable) {
  const auto* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool HasDisplay() {
  return IsSet("DISPLAY") || IsSet("WAYLAND_DISPLAY") || IsSet("QT_QPA_PLATFORM");
}

ExitStatus Run(int argc, char** argv) {
  auto status = ExitStatus::Ok;
  const auto line = zendria::ReadCommandLine(argc, argv, std::cout, std::cerr, status);
  if (!line) return status;
  if (!HasDisplay()) {
    std::cerr << "zendria: no hay pantalla en la que abrir la ventana.\n";
    return ExitStatus::NoDisplay;
  }

  QApplication application(argc, argv);
  QApplication::setApplicationName("Zendria");
  qt::QtFrontEnd screen;
  Application::Instance().UseScreen(&screen);
  zendria::RegisterHostComponents();
  zendria::Preferences preferences;
  {
    zendria::MainWindow window(screen, preferences, zendria::PendingScreens());
    screen.HostWindow(&window);
    window.show();
    const auto place = line->odbc.empty() ? QString::fromStdString(line->file)
                                          : zendria::OdbcPlace(QString::fromStdString(line->odbc));
    if (!place.isEmpty()) window.OpenSchool(place, line->user);
    QApplication::exec();
    if (!place.isEmpty() && !window.HasSchool()) status = ExitStatus::NoSchool;
    screen.HostWindow(nullptr);
  }
  Application::Instance().UseScreen(nullptr);
  return status;
}

}  // namespace

int main(int argc, char** argv) { return static_cast<int>(Run(argc, argv)); }
