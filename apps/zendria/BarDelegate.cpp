#include "apps/zendria/BarDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <utility>

namespace quorvane::zendria {
namespace {

constexpr QMargins kRound(2, 3, 2, 3);
constexpr float kFaint = 0.45F;
constexpr float kFaintest = 0.2F;

}  // namespace

void BarDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  const auto percent = index.data(kPercentRole);
  if (!percent.isValid()) return QStyledItemDelegate::paint(painter, option, index);
  auto item = option;
  initStyleOption(&item, index);
  const auto text = std::exchange(item.text, QString());
  const auto* const style = item.widget == nullptr ? QApplication::style() : item.widget->style();
  style->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
  auto frame = item.rect.marginsRemoved(kRound);
  const auto& palette = item.palette;
  const auto selected = item.state.testFlag(QStyle::State_Selected);
  painter->save();
  painter->setPen(palette.color(QPalette::Mid));
  painter->drawRect(frame.adjusted(0, 0, -1, -1));
  frame.adjust(1, 1, -1, -1);
  frame.setWidth(frame.width() * percent.toInt() / kWhole);
  // Faint enough for the text before it, on every palette.
  auto colour = palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight);
  colour.setAlphaF(selected ? kFaintest : kFaint);
  painter->fillRect(frame, colour);
  painter->setFont(item.font);
  style->drawItemText(painter, item.rect, static_cast<int>(item.displayAlignment), palette,
                      item.state.testFlag(QStyle::State_Enabled), text,
                      selected ? QPalette::HighlightedText : QPalette::Text);
  painter->restore();
}

}  // namespace quorvane::zendria
