#include "tests/ventana/OpenList.h"

#include <QLineEdit>
#include <QTableView>

#include "adapters/qt/grid/RetivoEditor.h"

namespace quorvane::test {
namespace {

/// The grid of grades is the only one whose rows a user ever sees.
constexpr const char* kGrid = "rtvNotasAlumno";

}  // namespace

std::optional<OpenList> FindOpenList(const qt::FormWindow& window) {
  for (auto* frame : window.findChildren<QFrame*>()) {
    auto* editor = dynamic_cast<qt::RetivoEditor*>(frame);
    if (editor == nullptr || !editor->isVisible()) continue;
    OpenList open;
    open.entries = editor->findChild<QListWidget*>();
    open.typed = editor->findChild<QLineEdit*>()->text();
    if (const auto* table = dynamic_cast<QTableView*>(window.Widget(kGrid))) {
      open.row = table->currentIndex().row();
      open.column = table->currentIndex().column();
    }
    const auto* entry = open.entries->currentItem();
    if (entry != nullptr && !entry->isHidden()) open.marked = entry->text();
    return open;
  }
  return std::nullopt;
}

}  // namespace quorvane::test
