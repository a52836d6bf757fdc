#include "apps/zendria/BarDelegate.h"

#include <QPainter>

namespace quorvane::zendria {
namespace {

constexpr QMargins kRound(2, 3, 2, 3);

}  // namespace

void BarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const auto percent = index.data(kPercentRole);
  if (!percent.isValid()) return;
  auto frame = option.rect.marginsRemoved(kRound);
  const auto& palette = option.palette;
  painter->save();
  painter->setPen(palette.color(QPalette::Mid));
  painter->drawRect(frame.adjusted(0, 0, -1, -1));
  frame.adjust(1, 1, -1, -1);
  frame.setWidth(frame.width() * percent.toInt() / kWhole);
  // The text behind it stays readable on every palette.
  auto colour = palette.color(QPalette::Highlight);
  colour.setAlphaF(0.45F);
  painter->fillRect(frame, colour);
  painter->restore();
}

}  // namespace quorvane::zendria
