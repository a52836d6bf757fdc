#include "adapters/qt/window/ScrolledPage.h"

#include <QFocusEvent>
#include <QScrollBar>

namespace quorvane::qt {

ScrolledPage::ScrolledPage(QWidget* window) : QScrollArea(window) {
  setFrameShape(QFrame::NoFrame);
  // The keyboard is for the controls.
  setFocusPolicy(Qt::NoFocus);
  setWidget(new QWidget);
}

QSize ScrolledPage::BarsFor(QSize page, QSize most) const {
  return {page.height() > most.height() ? verticalScrollBar()->sizeHint().width() : 0,
          page.width() > most.width() ? horizontalScrollBar()->sizeHint().height() : 0};
}

QSize ScrolledPage::WindowFor(QSize page, QSize most) const {
  return (page + BarsFor(page, most)).boundedTo(most);
}

void ScrolledPage::Take(QSize page, QSize most) {
  bars_ = BarsFor(page, most);
  Page().resize(page);
}

void ScrolledPage::Follow(QWidget& control, const QFocusEvent& event) {
  const auto reason = event.reason();
  const auto moved = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                     reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
  if (moved && Page().isAncestorOf(&control)) ensureWidgetVisible(&control);
}

}  // namespace quorvane::qt
