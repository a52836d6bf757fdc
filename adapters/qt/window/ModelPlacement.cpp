#include "adapters/qt/window/ModelPlacement.h"

#include <QLabel>
#include <QWidget>
#include <algorithm>
#include <vector>

#include "adapters/qt/views/ControlView.h"
#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"

namespace quorvane::qt {
namespace {

bool OneLine(const Control& control) {
  const auto kind = control.Kind();
  return kind == "ComboBox" || kind == "TextBox" || kind == "CheckBox" || kind == "Label" ||
         kind == "CommandButton";
}

/// The forms are drawn for a smaller font than many screens have: what would be cut grows, a line
/// of text evenly above and below, a caption to its right.
QRect Room(const Control& control, const QWidget& widget) {
  QRect room(Pixels(control.Left()), Pixels(control.Top()), Pixels(control.Width()),
             Pixels(control.Height()));
  if (!OneLine(control)) return room;
  const auto hint = widget.sizeHint();
  const auto missing = hint.height() - room.height();
  if (missing > 0) room.adjust(0, -missing / 2, 0, missing - missing / 2);
  const auto kind = control.Kind();
  if (kind == "Label" || kind == "CheckBox") room.setWidth(std::max(room.width(), hint.width()));
  return room;
}

/// A tab strip lies behind the panes that are drawn over it.
bool Below(const Control& one, const Control& other) {
  if (one.Layer() != other.Layer()) return one.Layer() < other.Layer();
  return one.Kind() == "TabStrip" && other.Kind() != "TabStrip";
}

}  // namespace

void PlaceByModel(FormWindow& window) {
  std::vector<const ControlView*> order;
  for (const auto& view : window.Views()) {
    view->Place(Room(view->Model(), *view->Widget()));
    order.push_back(view.get());
  }
  std::stable_sort(order.begin(), order.end(), [](const auto* one, const auto* other) {
    return Below(one->Model(), other->Model());
  });
  for (const auto* view : order) view->Widget()->raise();
}

}  // namespace quorvane::qt
