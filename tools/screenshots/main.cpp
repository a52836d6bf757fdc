#include <QApplication>
#include <QTemporaryDir>
#include <exception>
#include <iostream>

#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/zendria/HostComponents.h"
#include "platform/host/Application.h"
#include "tools/screenshots/Camera.h"
#include "tools/screenshots/Tour.h"

namespace {

using namespace quorvane;

void TakeAll(const QString& folder) {
  const QTemporaryDir rest;
  qt::QtFrontEnd screen;
  Application::Instance().UseScreen(&screen);
  zendria::RegisterHostComponents();
  screenshots::Camera camera(folder, rest.path(), "/escuelas");
  screenshots::Tour(screen, camera, rest.path()).Run();
  Application::Instance().UseScreen(nullptr);
  std::cout << camera.Count() << " pantallas en " << folder.toStdString() << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "Uso: pantallas CARPETA\n";
    return 2;
  }
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setStyle("Fusion");
  QApplication::setFont(QFont("DejaVu Sans", 9));
  try {
    TakeAll(QString::fromLocal8Bit(argv[1]));
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "pantallas: " << error.what() << "\n";
    return 1;
  }
}
