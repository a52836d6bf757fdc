#pragma once

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace quorvane::test {

/// Where QUORVANE_OSCURO is set, the colours of a desktop with dark windows.
inline void UseDarkLookIfAsked() {
  if (!qEnvironmentVariableIsSet("QUORVANE_OSCURO")) return;
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  const QColor window(45, 45, 48);
  const QColor text(232, 232, 232);
  QPalette dark(text, window, QColor(80, 80, 84), QColor(20, 20, 20), QColor(110, 110, 112), text,
                Qt::white, QColor(30, 30, 32), window);
  dark.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
  dark.setColor(QPalette::Highlight, QColor(42, 110, 180));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  QApplication::setPalette(dark);
}

}  // namespace quorvane::test
