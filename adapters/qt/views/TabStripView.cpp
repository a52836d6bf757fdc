#include "adapters/qt/views/TabStripView.h"

#include "adapters/qt/views/TabStripBox.h"
#include "adapters/qt/views/Units.h"

namespace quorvane::qt {

TabStripView::TabStripView(FormWindow& window, TabStrip& strip)
    : ControlView(window, strip), strip_(strip), box_(new TabStripBox(Surface())) {
  Use(box_);
  QObject::connect(box_->Bar(), &QTabBar::currentChanged, box_,
                   [this](int index) { Select(index + 1); });
  QObject::connect(box_->Bar(), &QTabBar::tabBarClicked, box_, [this](int index) {
    if (index >= 0 && index == box_->Bar()->currentIndex()) Select(index + 1);
  });
}

void TabStripView::Select(int tab) {
  Gesture([this, tab] { strip_.SelectedTab(tab); });
}

void TabStripView::Show() {
  auto* bar = box_->Bar();
  while (bar->count() > strip_.TabCount()) bar->removeTab(bar->count() - 1);
  while (bar->count() < strip_.TabCount()) bar->addTab(QString());
  for (int i = 0; i < bar->count(); ++i) bar->setTabText(i, Text(strip_.TabCaption(i + 1)));
  bar->setCurrentIndex(strip_.SelectedTab() - 1);
}

}  // namespace quorvane::qt
