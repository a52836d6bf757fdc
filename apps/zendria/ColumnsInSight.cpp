#include "apps/zendria/ColumnsInSight.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>
#include <QTreeWidget>
#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace quorvane::zendria {
namespace {

constexpr int kLeastLetters = 10;  // that a column which yields still shows

}  // namespace

ColumnsInSight::ColumnsInSight(QTreeWidget& list, std::vector<int> yielding)
    : QObject(&list), list_(list), yielding_(std::move(yielding)) {
  list_.setTextElideMode(Qt::ElideRight);
  list_.viewport()->installEventFilter(this);
  connect(list_.header(), &QHeaderView::sectionResized, this, [this](int section) {
    // The last takes what is left, whoever moves.
    if (!fitting_ && section < list_.columnCount() - 1) byHand_.insert(section);
  });
}

std::vector<int> ColumnsInSight::Wanted() const {
  const QAbstractItemView& items = list_;
  std::vector<int> widths;
  widths.reserve(static_cast<std::size_t>(list_.columnCount()));
  for (int column = 0; column < list_.columnCount(); ++column)
    widths.push_back(byHand_.contains(column) ? list_.columnWidth(column)
                                              : std::max(items.sizeHintForColumn(column),
                                                         list_.header()->sectionSizeHint(column)));
  return widths;
}

void ColumnsInSight::Fit() {
  auto widths = Wanted();
  const auto least = list_.fontMetrics().averageCharWidth() * kLeastLetters;
  const auto missing = std::accumulate(widths.begin(), widths.end(), 0) - list_.viewport()->width();
  std::vector<int*> yielding;
  for (const auto column : yielding_)
    if (!byHand_.contains(column)) yielding.push_back(&widths[static_cast<std::size_t>(column)]);
  const auto all = std::accumulate(yielding.begin(), yielding.end(), 0,
                                   [](int sum, const int* width) { return sum + *width; });
  // Each gives what it has more of.
  for (auto* const width : yielding)
    if (missing > 0)
      *width = std::max(std::min(least, *width), *width - missing * *width / all - 1);
  fitting_ = true;
  for (int column = 0; column < list_.columnCount(); ++column)
    if (!byHand_.contains(column))
      list_.setColumnWidth(column, widths[static_cast<std::size_t>(column)]);
  fitting_ = false;
}

bool ColumnsInSight::TellWhole(const QHelpEvent& help) const {
  const auto cell = list_.indexAt(help.pos());
  if (!cell.isValid() || !cell.data(Qt::ToolTipRole).toString().isEmpty()) return false;
  const QAbstractItemView& items = list_;
  if (items.sizeHintForIndex(cell).width() <= list_.visualRect(cell).width()) return false;
  QToolTip::showText(help.globalPos(), cell.data().toString(), list_.viewport(),
                     list_.visualRect(cell));
  return true;
}

bool ColumnsInSight::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::Resize && !fitting_) Fit();
  return event->type() == QEvent::ToolTip && TellWhole(*static_cast<QHelpEvent*>(event));
}

}  // namespace quorvane::zendria
