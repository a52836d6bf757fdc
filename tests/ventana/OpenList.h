#pragma once

#include <QListWidget>
#include <QString>
#include <optional>

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
std::optional<OpenList> FindOpenList(const qt::FormWindow& window);

}  // namespace quorvane::test
