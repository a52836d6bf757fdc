#pragma once

#include <QItemSelectionRange>
#include <QPersistentModelIndex>
#include <QTableView>
#include <functional>
#include <vector>

#include "adapters/qt/grid/FrozenColumn.h"
#include "adapters/qt/grid/GridModel.h"
#include "platform/controls/Grid.h"

namespace quorvane::qt {

/// The table of both kinds of grid: no editing of its own, no row headings, the grid's widths. Its
/// first column stays in sight when it is scrolled to the right.
class GridTable : public QTableView {
 public:
  explicit GridTable(QWidget* parent);

  /// Shows the grid's cells, headings and widths, and makes its current cell the table's. Raises
  /// no signal of the selection.
  void Take(const Grid& grid);
  /// Room that the columns leave goes to those that aren't centred, first to cut texts.
  void StretchColumns() { stretch_ = true; }
  /// Cut texts also take what those columns don't need, and widths that the user has dragged stay
  /// until the grid sets others.
  void FitColumns() { stretch_ = fit_ = true; }
  /// A text too long for its column goes on in another line.
  void WrapTexts();

  /// What the user has selected; an empty part when the current cell is where the grid put it.
  [[nodiscard]] QItemSelectionRange Chosen() const;
  /// The cell that the user stood on when he began to select, wherever the selection has gone from
  /// there; without one, the current cell.
  [[nodiscard]] QModelIndex Start() const;
  /// Puts onto the clipboard what the user has selected or, without that, the whole table.
  void Copy() const;
  /// The whole table, with its headings.
  void CopyAll() const;

  /// Makes it the current cell, selected by itself, from which a selection then goes.
  void GoTo(const QModelIndex& cell);
  /// Selects what lies within, as the user does. Leaves the current cell where it is.
  void Choose(const QItemSelectionRange& part);
  /// The user selects nothing any more; the current cell stays. False when he had selected no more
  /// than that.
  bool ChooseNothing();
  /// As the arrow by itself does, or with Shift where `extend`: the keyboard's arrow may be
  /// another's.
  void Arrow(Qt::Key arrow, bool extend);
  /// The columns are being laid out, not dragged.
  [[nodiscard]] bool LaysOut() const noexcept { return laysOut_; }

  /// Hands the keyboard to the control after it, or with False before it.
  void Leave(bool forward) { QTableView::focusNextPrevChild(forward); }

  /// Wide enough for all columns, within reason.
  [[nodiscard]] QSize sizeHint() const override;
  /// Beside the first column, never below it.
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  /// Asked first for each key; takes it by answering True.
  std::function<bool(const QKeyEvent&)> TakesKey;
  /// Asked first for Tab and, with False, for Shift+Tab.
  std::function<bool(bool forward)> TakesTab;
  /// A double click where no cell is.
  std::function<void()> DoubleClickBeside;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Column {
    int width = 0;  // in pixels; 0 is hidden
    bool centred = false;
    bool operator==(const Column&) const = default;
  };

  void ShowWidths();
  [[nodiscard]] std::vector<int> Widths() const;

  GridModel cells_;
  FrozenColumn* names_ = nullptr;
  std::vector<Column> columns_;
  bool stretch_ = false;
  bool fit_ = false;
  bool laysOut_ = false;
  bool chosen_ = false;  // by the user
  QPersistentModelIndex start_;
};

}  // namespace quorvane::qt
