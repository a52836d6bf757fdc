#include "adapters/qt/views/TabStripBox.h"

#include <QVBoxLayout>

namespace quorvane::qt {

TabStripBox::TabStripBox(QWidget* parent)
    : QWidget(parent), bar_(new QTabBar(this)), pane_(new QFrame(this)) {
  bar_->setExpanding(false);
  bar_->setDrawBase(false);
  pane_->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(bar_);
  layout->addWidget(pane_, 1);
  setFocusPolicy(Qt::TabFocus);
  setFocusProxy(bar_);
}

}  // namespace quorvane::qt
