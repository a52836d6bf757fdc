#pragma once

#include <QStyledItemDelegate>

namespace quorvane::zendria {

/// Paints a part of a whole as a bar behind its text, which is read on any palette.
class BarDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// What is all of it.
  static constexpr int kWhole = 100;
  /// The part, from 0 to `kWhole`, of a cell's data.
  static constexpr int kPercentRole = Qt::UserRole + 10;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace quorvane::zendria
