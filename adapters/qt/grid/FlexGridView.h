#pragma once

#include <QObject>

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/MSFlexGrid.h"

namespace quorvane::qt {

class GridTable;

/// A table to look at and choose a row from; Enter does what a double click does.
class FlexGridView : public QObject, public ControlView {
 public:
  FlexGridView(FormWindow& window, MSFlexGrid& grid);

 protected:
  void Show() override;

 private:
  void Choose(int row, int col);
  bool TakesEnter(int key);

  MSFlexGrid& grid_;
  GridTable* table_;
  unsigned topRowSets_ = 0;  // those that the table has followed
};

}  // namespace quorvane::qt
