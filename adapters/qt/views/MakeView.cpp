#include "adapters/qt/grid/FlexGridView.h"
#include "adapters/qt/grid/RetivoView.h"
#include "adapters/qt/views/AnimationView.h"
#include "adapters/qt/views/ButtonView.h"
#include "adapters/qt/views/CheckView.h"
#include "adapters/qt/views/ComboView.h"
#include "adapters/qt/views/FrameView.h"
#include "adapters/qt/views/LabelView.h"
#include "adapters/qt/views/ListView.h"
#include "adapters/qt/views/TabStripView.h"
#include "adapters/qt/views/TextView.h"
#include "platform/RuntimeError.h"

namespace quorvane::qt {
namespace {

/// The view for a model of that kind; null for a model of another.
template <class View, class Model>
std::unique_ptr<ControlView> Try(FormWindow& window, Control& control) {
  auto* model = dynamic_cast<Model*>(&control);
  return model == nullptr ? nullptr : std::make_unique<View>(window, *model);
}

}  // namespace

std::unique_ptr<ControlView> MakeView(FormWindow& window, Control& control) {
  using Maker = std::unique_ptr<ControlView> (*)(FormWindow&, Control&);
  constexpr Maker kinds[] = {
      &Try<LabelView, Label>,   &Try<ButtonView, CommandButton>, &Try<ComboView, ComboBox>,
      &Try<ListView, ListBox>,  &Try<CheckView, CheckBox>,       &Try<TextView, TextBox>,
      &Try<FrameView, Frame>,   &Try<TabStripView, TabStrip>,    &Try<FlexGridView, MSFlexGrid>,
      &Try<RetivoView, Retivo>, &Try<AnimationView, Animation>,
  };
  for (const auto make : kinds)
    if (auto view = make(window, control)) return view;
  throw RuntimeError(ErrorNumber::TypeMismatch);
}

}  // namespace quorvane::qt
