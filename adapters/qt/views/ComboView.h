#pragma once

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/ComboBox.h"

class QComboBox;

namespace quorvane::qt {

/// A drop-down list; picking the entry that stands is an event too.
class ComboView : public ControlView {
 public:
  ComboView(FormWindow& window, ComboBox& combo);

 protected:
  void Show() override;

 private:
  [[nodiscard]] bool HasSameEntries() const;

  ComboBox& combo_;
  QComboBox* box_;
};

}  // namespace quorvane::qt
