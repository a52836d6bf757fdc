#include "adapters/qt/grid/GridModel.h"

#include <QFont>
#include <QTextDocument>
#include <utility>

#include "adapters/qt/views/Units.h"

namespace quorvane::qt {
namespace {

std::vector<QString> CopyRow(const Grid& grid, int row) {
  std::vector<QString> texts;
  texts.reserve(static_cast<std::size_t>(grid.Cols()));
  for (int col = 0; col < grid.Cols(); ++col) texts.push_back(LineText(grid.TextMatrix(row, col)));
  return texts;
}

/// A name is no markup, whatever signs it holds.
QString AsToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

}  // namespace

void GridModel::Take(const Grid& grid) {
  Row heading(static_cast<std::size_t>(grid.Cols()));
  for (int row = 0; row < grid.FixedRows(); ++row) heading = CopyRow(grid, row);
  std::vector<Row> rows;
  for (int row = grid.FixedRows(); row < grid.Rows(); ++row) rows.push_back(CopyRow(grid, row));
  std::vector<int> alignments;
  alignments.reserve(heading.size());
  for (int col = 0; col < grid.Cols(); ++col) alignments.push_back(grid.ColAlignment(col));

  const auto sameShape = rows.size() == rows_.size() && heading.size() == heading_.size();
  if (!sameShape) beginResetModel();
  heading_ = std::move(heading);
  rows_ = std::move(rows);
  alignments_ = std::move(alignments);
  if (!sameShape) {
    endResetModel();
  } else if (!heading_.empty()) {
    const auto last = columnCount() - 1;
    if (!rows_.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, last));
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, last);
  }
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(heading_.size());
}

bool GridModel::Centred(int column) const {
  return alignments_[static_cast<std::size_t>(column)] == kCentred;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const auto& text =
      rows_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
  switch (role) {
    case Qt::DisplayRole:
      return text;
    case Qt::ToolTipRole:
      return AsToolTip(text);
    case Qt::AccessibleTextRole: {
      // Who can't see the heading above hears it; an empty cell has nothing else to tell.
      const auto& column = heading_[static_cast<std::size_t>(index.column())];
      return text.isEmpty() ? column + ": en blanco" : column + ": " + text;
    }
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (Centred(index.column()) ? Qt::AlignHCenter : Qt::AlignLeft));
    case Qt::FontRole:
      if (Centred(index.column())) {
        // Marks in a matrix are to be seen from afar.
        QFont font;
        font.setBold(true);
        return font;
      }
      return {};
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return heading_[static_cast<std::size_t>(section)];
  if (role == Qt::ToolTipRole) return AsToolTip(heading_[static_cast<std::size_t>(section)]);
  if (role == Qt::TextAlignmentRole)
    return QVariant::fromValue(Qt::AlignVCenter |
                               (Centred(section) ? Qt::AlignHCenter : Qt::AlignLeft));
  return {};
}

}  // namespace quorvane::qt
