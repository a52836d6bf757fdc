#include "apps/zendria/CentreChoice.h"

#include "adapters/qt/views/ClosedListWheel.h"

namespace quorvane::zendria {

CentreChoice::CentreChoice() : label_("Cen&tro en el que trabaja") {
  label_.setBuddy(&box_);
  box_.setObjectName("centro");
  box_.setAccessibleName("Centro en el que trabaja");
  qt::LeaveWheelOf(box_);
  // A list of many kinds of teaching must not make the dialog wider than the screen.
  box_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

void CentreChoice::AddTo(QVBoxLayout& column) {
  column.addWidget(&label_);
  column.addWidget(&box_);
}

void CentreChoice::Offer(const std::vector<Centre>& centres, std::optional<std::int32_t> id) {
  centres_ = centres;
  box_.clear();
  for (const auto& centre : centres_) {
    box_.addItem(centre.Text());
    box_.setItemData(box_.count() - 1, centre.Text(), Qt::ToolTipRole);
    if (centre.id == id) box_.setCurrentIndex(box_.count() - 1);
  }
  const auto choice = centres_.size() > 1;
  label_.setVisible(choice);
  box_.setVisible(choice);
}

std::optional<Centre> CentreChoice::Chosen() const {
  if (centres_.empty()) return std::nullopt;
  return centres_[static_cast<std::size_t>(box_.currentIndex())];
}

}  // namespace quorvane::zendria
