#include "tests/ventana/WindowMain.h"

#include <QApplication>
#include <iostream>

namespace quorvane::test {
namespace {

/// Without what a platform says that has no windows to raise.
void TellMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
  if (!text.startsWith("This plugin does not support"))
    std::cerr << text.toStdString() << std::endl;
}

}  // namespace

int WindowMain(const WalkProgram& program, int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(TellMessage);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  for (const auto effect : {Qt::UI_AnimateCombo, Qt::UI_AnimateMenu, Qt::UI_AnimateTooltip})
    QApplication::setEffectEnabled(effect, false);
  QApplication::setCursorFlashTime(0);
  // Each letter begins a search of its own.
  QApplication::setKeyboardInputInterval(-1);
  // Longer than a double click takes in the queue; what a list waits after its opening.
  constexpr int kDoubleClick = 20;
  QApplication::setDoubleClickInterval(kDoubleClick);
  return WalkMain(program, argc, argv);
}

}  // namespace quorvane::test
