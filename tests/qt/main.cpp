#include <QApplication>
#include <gtest/gtest.h>

#include "tests/qt/DarkLook.h"

int main(int argc, char** argv) {
  // Without a display, but for a developer who wants to watch.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  quorvane::test::UseDarkLookIfAsked();
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
