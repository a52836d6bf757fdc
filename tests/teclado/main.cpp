#include <QApplication>
#include <gtest/gtest.h>
#include <string_view>

#include "tests/teclado/XServer.h"

int main(int argc, char** argv) {
  // Who decides which window has the keyboard differs with a window manager and without.
  const auto managed = argc < 2 || std::string_view(argv[1]) != "--sin-gestor";
  const quorvane::test::XServer server(managed);
  qputenv("DISPLAY", server.Display().c_str());
  qputenv("QT_QPA_PLATFORM", "xcb");
  qunsetenv("SESSION_MANAGER");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
