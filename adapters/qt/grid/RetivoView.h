#pragma once

#include <QObject>
#include <QString>

#include "adapters/qt/grid/RetivoEditor.h"
#include "adapters/qt/views/ControlView.h"
#include "platform/controls/Retivo.h"

namespace quorvane::qt {

class GridMenu;
class GridTable;

/// A table whose list cells open a list on click, F2, Enter or typing. Tab goes from one list cell
/// to the next, the arrow keys from cell to cell; Ctrl+Tab leaves the table at once.
class RetivoView : public QObject, public ControlView {
 public:
  RetivoView(FormWindow& window, Retivo& retivo);

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
  void GoOn(RetivoEditor::Then then);
  bool TakesKey(const QKeyEvent& key);
  bool MoveOn(bool forward);
  void EndEdit(int entry);

  Retivo& retivo_;
  GridTable* table_;
  RetivoEditor* editor_;
  int draggedColumn_ = -1;  // while the mouse drags its border
};

}  // namespace quorvane::qt
