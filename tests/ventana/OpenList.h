#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QString>
#include <QTableView>
#include <optional>

#include "adapters/qt/grid/RetivoEditor.h"
#include "adapters/qt/window/FormWindow.h"

namespace quorvane::test {

/// The list that a grade's cell has opened on the screen.
struct OpenList {
  QListWidget* entries = nullptr;  ///< the window's
  int row = -1;                    ///< of the cell, below the headings
  int column = -1;
  QString typed;
  std::optional<QString> marked;  ///< the entry that Enter would take
};

/// None when no cell has its list open.
inline std::optional<OpenList> FindOpenList(const qt::FormWindow& window) {
  for (auto* frame : window.findChildren<QFrame*>()) {
    auto* editor = dynamic_cast<qt::RetivoEditor*>(frame);
    if (editor == nullptr || !editor->isVisible()) continue;
    OpenList open;
    open.entries = editor->findChild<QListWidget*>();
    open.typed = editor->findChild<QLineEdit*>()->text();
    // The grid of grades is the only one whose rows a user ever sees.
    if (const auto* table = dynamic_cast<QTableView*>(window.Widget("rtvNotasAlumno"))) {
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
