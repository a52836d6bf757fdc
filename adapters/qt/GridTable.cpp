#include "adapters/qt/GridTable.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <numeric>

#include "adapters/qt/Units.h"

namespace quorvane::qt {
namespace {

constexpr int kRowPadding = 7;  // pixels above and below the text of a row, together
constexpr int kCentred = 4;

}  // namespace

GridTable::GridTable(QWidget* parent) : QTableView(parent) {
  setModel(&cells_);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setHorizontalScrollMode(ScrollPerPixel);
  setWordWrap(false);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(fontMetrics().height() + kRowPadding);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setMinimumSectionSize(8);
}

void GridTable::Take(const Grid& grid) {
  const QSignalBlocker quiet(selectionModel());
  const auto scrolled = verticalScrollBar()->value();
  cells_.Take(grid);
  horizontalHeader()->setVisible(grid.FixedRows() > 0);
  std::vector<Column> columns;
  for (int col = 0; col < grid.Cols(); ++col)
    columns.push_back({Pixels(grid.ColWidth(col)), grid.ColAlignment(col) == kCentred});
  // Widths that the user dragged stay until the grid sets others.
  if (columns != columns_ || !stretch_) {
    columns_ = std::move(columns);
    ShowWidths();
  }
  verticalScrollBar()->setValue(scrolled);
  const auto row = grid.Row() - grid.FixedRows();
  const auto current = row < 0 ? QModelIndex() : cells_.index(row, grid.Col());
  if (!current.isValid()) {
    selectionModel()->clear();
    viewport()->update();
    return;
  }
  const auto moved = current != currentIndex();
  const auto whole =
      selectionBehavior() == SelectRows ? QItemSelectionModel::Rows : QItemSelectionModel::NoUpdate;
  selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect | whole);
  if (moved) scrollTo(current);
  // The blocked signals would have had it painted.
  viewport()->update();
}

void GridTable::ShowWidths() {
  std::vector<int> widths;
  for (const auto& column : columns_) widths.push_back(column.width);
  const auto sum = std::accumulate(widths.begin(), widths.end(), 0);
  const auto room = viewport()->width() - sum;
  auto plain = 0;
  for (const auto& column : columns_)
    if (!column.centred) plain += column.width;
  if (stretch_ && room > 0 && plain > 0) {
    auto left = room;
    std::size_t last = 0;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (columns_[i].centred || columns_[i].width == 0) continue;
      const auto share = static_cast<int>(static_cast<long long>(room) * columns_[i].width / plain);
      widths[i] += share;
      left -= share;
      last = i;
    }
    widths[last] += left;
  }
  for (int col = 0; col < static_cast<int>(widths.size()); ++col) {
    const auto width = widths[static_cast<std::size_t>(col)];
    setColumnHidden(col, width == 0);
    if (width > 0 && columnWidth(col) != width) setColumnWidth(col, width);
  }
}

void GridTable::keyPressEvent(QKeyEvent* event) {
  if (TakesKey && TakesKey(*event)) {
    event->accept();
    return;
  }
  QTableView::keyPressEvent(event);
}

bool GridTable::focusNextPrevChild(bool next) {
  if (TakesTab && TakesTab(next)) return true;
  return QTableView::focusNextPrevChild(next);
}

void GridTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (stretch_) ShowWidths();
}

}  // namespace quorvane::qt
