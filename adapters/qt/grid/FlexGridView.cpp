#include "adapters/qt/grid/FlexGridView.h"

#include <QKeyEvent>

#include "adapters/qt/grid/GridMenu.h"
#include "adapters/qt/grid/GridTable.h"

namespace quorvane::qt {

FlexGridView::FlexGridView(FormWindow& window, MSFlexGrid& grid)
    : ControlView(window, grid), grid_(grid), table_(new GridTable(Surface())) {
  Use(table_);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->FitColumns();
  table_->TakesKey = [this](const QKeyEvent& key) { return TakesEnter(key.key()); };
  connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            if (current.isValid()) Choose(current.row(), current.column());
          });
  const auto doubleClick = [this] { Gesture([this] { grid_.DoubleClick(); }); };
  connect(table_, &QTableView::doubleClicked, this, doubleClick);
  table_->DoubleClickBeside = doubleClick;
  auto* const menu = new GridMenu(window, grid, *table_);
  menu->Add({"Copiar", "Ctrl+C", [this] { table_->Copy(); }, {}});
  menu->Add({"Copiar la tabla entera", {}, [this] { table_->CopyAll(); }, {}});
}

void FlexGridView::Choose(int row, int col) {
  Gesture([this, row, col] {
    grid_.Row(row + grid_.FixedRows());
    grid_.Col(col);
  });
}

bool FlexGridView::TakesEnter(int key) {
  if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !grid_.DblClick) return false;
  if (!table_->currentIndex().isValid()) return false;
  Gesture([this] { grid_.DoubleClick(); });
  return true;
}

void FlexGridView::Show() {
  table_->Take(grid_);
  if (grid_.TopRowSets() == topRowSets_) return;
  topRowSets_ = grid_.TopRowSets();
  table_->scrollTo(table_->model()->index(grid_.TopRow() - grid_.FixedRows(), 0),
                   QAbstractItemView::PositionAtTop);
}

}  // namespace quorvane::qt
