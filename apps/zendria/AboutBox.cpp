#include "apps/zendria/AboutBox.h"

#include <QMessageBox>

#include "platform/host/Application.h"

namespace quorvane::zendria {

QString VersionText() {
  const auto version = Application::Instance().Version();
  return QStringLiteral("%1.%2.%3")
      .arg(version.major)
      .arg(version.minor, 2, 10, QLatin1Char('0'))
      .arg(version.revision, 4, 10, QLatin1Char('0'));
}

void ShowAbout(QWidget& window) {
  QMessageBox::about(
      &window, "Zendria Escuela",
      QStringLiteral("<h3>Zendria Escuela</h3><p>Materias pendientes, versión %1</p>")
          .arg(VersionText()));
}

}  // namespace quorvane::zendria
