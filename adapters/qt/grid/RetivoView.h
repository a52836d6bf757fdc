#pragma once

#include <QObject>
#include <QString>
#include <vector>

#include "adapters/qt/grid/CellEdits.h"
#include "adapters/qt/grid/RetivoEditor.h"
#include "adapters/qt/views/ControlView.h"
#include "platform/controls/Retivo.h"

namespace quorvane::qt {

class GridHint;
class GridMenu;
class GridTable;

/// A table whose list cells open a list on click, F2, the blank or typing. Enter goes down, Tab
/// from one list cell to the next and no further than the last, Ctrl with an arrow from cell to
/// cell where the form has the arrow; Ctrl+Tab leaves the table. A line below it tells its keys.
class RetivoView : public QObject, public ControlView {
 public:
  RetivoView(FormWindow& window, Retivo& retivo);

  void Place(const QRect& room) override;
  [[nodiscard]] bool KeepsKey(const QKeyEvent& key) const override;

 protected:
  void Show() override;
  /// What is built meanwhile is seen when the grid is to be painted again.
  [[nodiscard]] bool Frozen() const override { return !retivo_.Redraw(); }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FillMenu(GridMenu& menu);
  [[nodiscard]] bool Opens(const QModelIndex& cell) const;
  /// Where the cell is in the window.
  [[nodiscard]] QRect RoomOf(const QModelIndex& cell) const;
  void Open(const QModelIndex& cell, const QString& typed);
  /// The place in its list of the entry that the cell stands for; -1 for none.
  [[nodiscard]] int EntryOf(const QModelIndex& cell) const;
  /// A click on that cell, unless it was to select more.
  void OpenByMouse(const QModelIndex& cell);
  void GoOn(RetivoEditor::Then then);
  bool TakesKey(const QKeyEvent& key);
  /// To the next list cell or the one before, and nowhere where there is none. False in a table
  /// without list cells, which keeps nobody.
  bool MoveOn(bool forward);
  [[nodiscard]] bool AnyOpens() const;
  void MoveBy(int rows);
  bool TakesCommand(const QKeyEvent& key);
  bool TakesArrow(const QKeyEvent& key);
  void Paste();
  [[nodiscard]] std::vector<CellText> ToFill() const;
  void FillDown();
  void Clear();
  /// Puts the texts into their cells, then tells in one message what was left as it was.
  void Edit(const QString& title, const std::vector<CellText>& cells);

  Retivo& retivo_;
  GridTable* table_;
  GridHint* hint_;
  RetivoEditor* editor_;
  CellEdits edits_;
  int draggedColumn_ = -1;  // while the mouse drags its border
};

}  // namespace quorvane::qt
