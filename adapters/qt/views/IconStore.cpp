#include "adapters/qt/views/IconStore.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QPalette>
#include <QPixmap>

#include "adapters/qt/views/Units.h"

// The linker would leave a static library's resources out; the macro must stand in no namespace.
static void KeepResources() { Q_INIT_RESOURCE(iconos); }

namespace quorvane::qt {
namespace {

constexpr auto kProgram = "zendria";

/// The drawing in lighter colours, where the dark ones of its lines couldn't be seen.
QIcon LighterDrawing(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  auto drawing = file.readAll();
  drawing.replace("#2f6f9f", "#6fb1e4").replace("#1d4a6d", "#c8e2f6");
  QIcon icon;
  for (const auto side : {16, 24, 32, 48, 64, 96}) {
    QBuffer buffer(&drawing);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize({side, side});
    icon.addPixmap(QPixmap::fromImageReader(&reader));
  }
  return icon;
}

QIcon Drawing(const QString& name) {
  KeepResources();
  const auto path = ":/iconos/" + name + ".svg";
  if (!QFileInfo::exists(path)) return {};
  const auto palette = QGuiApplication::palette();
  const auto dark =
      palette.color(QPalette::Button).lightness() < palette.color(QPalette::ButtonText).lightness();
  // The program's own has its ground with it.
  return dark && name != kProgram ? LighterDrawing(path) : QIcon(path);
}

}  // namespace

QIcon IconStore::Load(const std::string& file) {
  if (file.empty()) return {};
  const auto path = Text(file).replace('\\', '/');
  if (QImageReader(path).canRead()) return QIcon(path);
  return Drawing(QFileInfo(path).completeBaseName());
}

QIcon IconStore::ForBareButton(const std::string& control) {
  if (control == "cmdAnterior") return Drawing("FlechaIzquierda");
  if (control == "cmdSiguiente") return Drawing("FlechaDerecha");
  return {};
}

}  // namespace quorvane::qt
