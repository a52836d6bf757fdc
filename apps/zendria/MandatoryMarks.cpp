#include "apps/zendria/MandatoryMarks.h"

#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"

namespace quorvane::zendria {
namespace {

bool BeginsBefore(const Control& one, const Control& other) { return one.Left() <= other.Left(); }

bool OnTheSameRow(const Control& label, const Control& field) {
  const auto middle = label.Top() + label.Height() / 2;
  return middle >= field.Top() && middle <= field.Top() + field.Height();
}

bool Above(const Control& label, const Control& field) {
  return label.Top() < field.Top() && label.Left() < field.Left() + field.Width();
}

Label* LabelOf(const Control& field) {
  Label* beside = nullptr;
  Label* above = nullptr;
  for (auto* const control : field.Owner().Controls()) {
    auto* const label = dynamic_cast<Label*>(control);
    if (label == nullptr || label->Container() != field.Container()) continue;
    if (OnTheSameRow(*label, field) && BeginsBefore(*label, field)) {
      if (beside == nullptr || label->Left() > beside->Left()) beside = label;
    } else if (Above(*label, field)) {
      if (above == nullptr || label->Top() > above->Top()) above = label;
    }
  }
  return beside != nullptr ? beside : above;
}

}  // namespace

void MarkMandatoryFields(Form& form) {
  for (auto* const control : form.Controls()) {
    if (dynamic_cast<const ComboBox*>(control) == nullptr) continue;
    control->Mandatory(true);
    if (auto* const label = LabelOf(*control)) label->Mandatory(true);
  }
}

}  // namespace quorvane::zendria
