#include "adapters/qt/grid/GridTable.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <numeric>

#include "adapters/qt/grid/GridText.h"
#include "adapters/qt/views/FocusBorder.h"
#include "adapters/qt/views/Units.h"

namespace quorvane::qt {
namespace {

constexpr int kRowPadding = 7;    // pixels above and below the text of a row, together
constexpr int kLeastWidth = 256;  // pixels, as the next
constexpr int kGreatestWidth = 1100;

}  // namespace

GridTable::GridTable(QWidget* parent) : QTableView(parent) {
  setModel(&cells_);
  ShowFocusOnBorder(*this);
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
  horizontalHeader()->setTextElideMode(Qt::ElideRight);
  horizontalHeader()->setMinimumHeight(fontMetrics().height() + kRowPadding);
  names_ = new FrozenColumn(*this);
  const auto choose = [this] {
    chosen_ = true;
    // The current cell goes along with the mouse that drags and the arrow that extends.
    const auto& chosen = selectionModel()->selection();
    if (chosen.size() == 1 && chosen.front().topLeft() == chosen.front().bottomRight())
      start_ = chosen.front().topLeft();
  };
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, choose);
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this, choose);
}

void GridTable::Take(const Grid& grid) {
  const QSignalBlocker quiet(selectionModel());
  const auto scrolled = verticalScrollBar()->value();
  cells_.Take(grid);
  horizontalHeader()->setVisible(grid.FixedRows() > 0);
  std::vector<Column> columns;
  columns.reserve(static_cast<std::size_t>(grid.Cols()));
  for (int col = 0; col < grid.Cols(); ++col)
    columns.push_back({Pixels(grid.ColWidth(col)), grid.ColAlignment(col) == kCentred});
  if (columns != columns_ || !fit_) {
    columns_ = std::move(columns);
    ShowWidths();
  }
  verticalScrollBar()->setValue(scrolled);
  names_->Follow();
  const auto row = grid.Row() - grid.FixedRows();
  const auto current = row < 0 ? QModelIndex() : cells_.index(row, grid.Col());
  const auto moved = current != currentIndex();
  // What the user has selected round the current cell stays.
  if (!moved && selectionModel()->isSelected(current)) return viewport()->update();
  if (moved) chosen_ = false;
  if (!current.isValid()) {
    selectionModel()->clear();
    viewport()->update();
    return;
  }
  // The view tells of the new current cell before it extends the selection to it.
  const auto start = moved ? QPersistentModelIndex(current) : start_;
  GoTo(current);
  start_ = start;
  if (moved) scrollTo(current);
  // The blocked signals would have had it painted.
  viewport()->update();
}

std::vector<int> GridTable::Widths() const {
  std::vector<int> widths;
  widths.reserve(columns_.size());
  for (const auto& column : columns_) widths.push_back(column.width);
  auto room = viewport()->width() - std::accumulate(widths.begin(), widths.end(), 0);
  std::vector<std::size_t> plain;
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (!columns_[i].centred && columns_[i].width > 0) plain.push_back(i);
  if (!stretch_ || plain.empty()) return widths;
  const auto missing = [this, &widths](std::size_t i) {
    const auto column = static_cast<int>(i);
    return std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column)) -
           widths[i];
  };
  auto wanted = -room;
  for (const auto i : plain) wanted += std::max(0, missing(i));
  for (const auto i : plain) {
    if (!fit_) break;
    const auto share = std::clamp(-missing(i), 0, std::max(0, wanted));
    widths[i] -= share;
    room += share;
    wanted -= share;
  }
  for (const auto i : plain) {
    const auto share = std::clamp(missing(i), 0, std::max(0, room));
    widths[i] += share;
    room -= share;
  }
  const auto share = std::max(0, room) / static_cast<int>(plain.size());
  for (const auto i : plain) widths[i] += share;
  widths[plain.back()] += std::max(0, room) - share * static_cast<int>(plain.size());
  return widths;
}

void GridTable::ShowWidths() {
  const QScopedValueRollback layingOut(laysOut_, true);
  const auto widths = Widths();
  for (int col = 0; col < static_cast<int>(widths.size()); ++col) {
    const auto width = widths[static_cast<std::size_t>(col)];
    setColumnHidden(col, width == 0);
    if (width > 0 && columnWidth(col) != width) setColumnWidth(col, width);
  }
}

void GridTable::WrapTexts() {
  setWordWrap(true);
  verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

QSize GridTable::sizeHint() const {
  auto width = 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
  for (int col = 0; col < static_cast<int>(columns_.size()); ++col) {
    const auto& column = columns_[static_cast<std::size_t>(col)];
    if (column.width > 0) width += std::max(column.width, sizeHintForColumn(col));
  }
  return {std::clamp(width, kLeastWidth, kGreatestWidth), QTableView::sizeHint().height()};
}

void GridTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QTableView::scrollTo(index, hint);
  if (index.column() == 0) return;
  const auto hidden = names_->Covered() - visualRect(index).left();
  auto* const bar = horizontalScrollBar();
  if (hidden > 0) bar->setValue(bar->value() - hidden);
}

QItemSelectionRange GridTable::Chosen() const {
  QRect around;
  for (const auto& range : selectionModel()->selection())
    around |= QRect(range.left(), range.top(), range.width(), range.height());
  if (!chosen_ || around.isEmpty()) return {};
  return {model()->index(around.top(), around.left()),
          model()->index(around.bottom(), around.right())};
}

QModelIndex GridTable::Start() const {
  const auto part = Chosen();
  return start_.isValid() && part.contains(start_) ? QModelIndex(start_) : currentIndex();
}

void GridTable::Copy() const {
  const auto part = Chosen();
  if (part.isEmpty()) return CopyAll();
  QGuiApplication::clipboard()->setText(TextOfRows(RowsOf(*this, part)));
}

void GridTable::GoTo(const QModelIndex& cell) {
  const auto whole =
      selectionBehavior() == SelectRows ? QItemSelectionModel::Rows : QItemSelectionModel::NoUpdate;
  setCurrentIndex(cell);
  // By itself that selects more while Shift is held, which is how one goes back.
  selectionModel()->select(cell, QItemSelectionModel::ClearAndSelect | whole);
  start_ = cell;
}

void GridTable::Choose(const QItemSelectionRange& part) {
  selectionModel()->select(QItemSelection(part.topLeft(), part.bottomRight()),
                           QItemSelectionModel::ClearAndSelect);
}

bool GridTable::ChooseNothing() {
  const auto part = Chosen();
  if (part.width() * part.height() < 2) return false;
  GoTo(currentIndex());
  chosen_ = false;
  return true;
}

void GridTable::Arrow(Qt::Key arrow, bool extend) {
  QKeyEvent press(QEvent::KeyPress, arrow, extend ? Qt::ShiftModifier : Qt::NoModifier);
  QTableView::keyPressEvent(&press);
}

void GridTable::CopyAll() const {
  QGuiApplication::clipboard()->setText(TextOfRows(RowsOf(*this)));
}

void GridTable::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return Copy();
  if (TakesKey && TakesKey(*event)) {
    event->accept();
    return;
  }
  QTableView::keyPressEvent(event);
}

void GridTable::mousePressEvent(QMouseEvent* event) {
  QTableView::mousePressEvent(event);
  if (event->button() == Qt::LeftButton && (event->modifiers() & Qt::ShiftModifier) == 0)
    start_ = currentIndex();
}

void GridTable::mouseDoubleClickEvent(QMouseEvent* event) {
  QTableView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && !indexAt(event->pos()).isValid() && DoubleClickBeside)
    DoubleClickBeside();
}

bool GridTable::focusNextPrevChild(bool next) {
  if (TakesTab && TakesTab(next)) return true;
  return QTableView::focusNextPrevChild(next);
}

void GridTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (stretch_) ShowWidths();
  names_->Follow();
}

}  // namespace quorvane::qt
