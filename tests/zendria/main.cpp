#include <QApplication>
#include <cstdio>
#include <gtest/gtest.h>

#include "tests/qt/DarkLook.h"

namespace {

/// Qt's remarks on what a platform without windows can't do say nothing about the program.
void TellAllElse(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
  if (text.startsWith("This plugin does not support")) return;
  std::fprintf(stderr, "%s\n", text.toUtf8().constData());
}

}  // namespace

int main(int argc, char** argv) {
  // No display is needed, and none that is there is disturbed; another screen may be asked for.
  if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(TellAllElse);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  quorvane::test::UseDarkLookIfAsked();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
