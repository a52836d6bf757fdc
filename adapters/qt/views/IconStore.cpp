#include "adapters/qt/views/IconStore.h"

#include <QFileInfo>
#include <QImageReader>

#include "adapters/qt/views/Units.h"

// The linker would leave a static library's resources out; the macro must stand in no namespace.
static void KeepResources() { Q_INIT_RESOURCE(iconos); }

namespace quorvane::qt {
namespace {

QIcon Drawing(const QString& name) {
  KeepResources();
  const auto path = ":/iconos/" + name + ".svg";
  return QFileInfo::exists(path) ? QIcon(path) : QIcon();
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
