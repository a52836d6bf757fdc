#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <exception>
#include <iostream>
#include <optional>

#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/zendria/HostComponents.h"
#include "apps/zendria/SpanishTexts.h"
#include "apps/zendria/VisibleStyle.h"
#include "platform/host/Application.h"
#include "platform/text/PlainNumber.h"
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

namespace {

/// Qt's remarks on what a platform without windows can't do say nothing about the pictures.
void TellAllElse(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
  if (!text.startsWith("This plugin does not support")) std::cerr << text.toStdString() << "\n";
}

constexpr auto kUsage = "Uso: pantallas [--oscuro] [--letra PUNTOS] CARPETA\n";

struct Look {
  QString folder;
  bool dark = false;
  int points = 9;
};

std::optional<Look> Read(const QStringList& arguments) {
  Look look;
  for (auto at = arguments.begin() + 1; at != arguments.end(); ++at) {
    if (*at == "--oscuro") {
      look.dark = true;
    } else if (*at == "--letra" && at + 1 != arguments.end()) {
      const auto points = PlainNumber<int>((++at)->toStdString());
      if (!points || *points < 1) return std::nullopt;
      look.points = *points;
    } else if (look.folder.isEmpty()) {
      look.folder = *at;
    } else {
      return std::nullopt;
    }
  }
  if (look.folder.isEmpty() || look.points < 1) return std::nullopt;
  return look;
}

/// As desktops with dark windows have it.
QPalette DarkPalette() {
  const QColor window(45, 45, 48);
  const QColor base(30, 30, 32);
  const QColor text(232, 232, 232);
  const QColor faint(128, 128, 128);
  QPalette dark(text, window, QColor(80, 80, 84), QColor(20, 20, 20), QColor(110, 110, 112), text,
                Qt::white, base, window);
  dark.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
  dark.setColor(QPalette::Highlight, QColor(42, 110, 180));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::ToolTipBase, window);
  dark.setColor(QPalette::ToolTipText, text);
  // Some of them forget it.
  dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
  dark.setColor(QPalette::Link, QColor(110, 170, 240));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    dark.setColor(QPalette::Disabled, role, faint);
  return dark;
}

}  // namespace

int main(int argc, char** argv) {
  qInstallMessageHandler(TellAllElse);
  const QApplication application(argc, argv);
  const auto look = Read(QApplication::arguments());
  if (!look) {
    std::cerr << kUsage;
    return 2;
  }
  QApplication::setQuitOnLastWindowClosed(false);
  auto* const style = new zendria::VisibleStyle;
  style->setBaseStyle(QStyleFactory::create("Fusion"));
  QApplication::setStyle(style);
  QApplication::setFont(QFont("DejaVu Sans", look->points));
  if (look->dark) {
    // As the toolkit takes a desktop's.
    auto palette = DarkPalette();
    QApplication::style()->polish(palette);
    QApplication::setPalette(palette);
  }
  zendria::UseSpanishTexts();
  try {
    TakeAll(look->folder);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "pantallas: " << error.what() << "\n";
    return 1;
  }
}
