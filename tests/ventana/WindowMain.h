#pragma once

#include <QApplication>
#include <iostream>

#include "tests/walk/WalkMain.h"

namespace quorvane::test {

/// Without what a platform says that has no windows to raise.
inline void TellMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                        const QString& text) {
  if (!text.startsWith("This plugin does not support"))
    std::cerr << text.toStdString() << std::endl;
}

/// `WalkMain` with the toolkit up, without a display but for a developer who wants to watch, and
/// with nothing in it that hangs on the clock: the same seed is to give the same walk.
inline int WindowMain(const WalkProgram& program, int argc, char** argv) {
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
