#pragma once

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/TabStrip.h"

namespace quorvane::qt {

class TabStripBox;

/// A row of tabs; pressing the one that is selected is an event too.
class TabStripView : public ControlView {
 public:
  TabStripView(FormWindow& window, TabStrip& strip);

 protected:
  void Show() override;

 private:
  void Select(int tab);

  TabStrip& strip_;
  TabStripBox* box_;
};

}  // namespace quorvane::qt
