#pragma once

#include <QTableView>

namespace quorvane::qt {

/// The first column of a table, which lies over the table's left edge while that is scrolled to the
/// right: whose row it is stays in sight. A click on it is one on the table's own cell.
class FrozenColumn : public QTableView {
 public:
  /// A child of the table, whose model stands.
  explicit FrozenColumn(QTableView& table);

  /// Takes the table's widths, heights and place again, and goes out of sight when there is no need
  /// of it.
  void Follow();
  /// What it covers of the table's cells, in pixels from their left edge.
  [[nodiscard]] int Covered() const;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  [[nodiscard]] bool Needed() const;

  QTableView& table_;
};

}  // namespace quorvane::qt
