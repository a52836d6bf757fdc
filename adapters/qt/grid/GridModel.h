#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <vector>

#include "platform/controls/Grid.h"

namespace quorvane::qt {

/// What `Grid::ColAlignment` gives for a column whose texts stand in the middle.
inline constexpr int kCentred = 4;

/// What a table shows of a grid: a copy of its cells, so that painting never reaches a grid that
/// is being rebuilt. The fixed rows become the table's heading and aren't counted.
class GridModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  /// Copies the grid as it stands.
  void Take(const Grid& grid);

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  using Row = std::vector<QString>;

  [[nodiscard]] bool Centred(int column) const;

  Row heading_;
  std::vector<Row> rows_;
  std::vector<int> alignments_;
};

}  // namespace quorvane::qt
