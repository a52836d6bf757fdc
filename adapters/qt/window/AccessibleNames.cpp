#include "adapters/qt/window/AccessibleNames.h"

#include <QAbstractButton>
#include <QLabel>
#include <algorithm>
#include <limits>
#include <vector>

#include "adapters/qt/views/ControlView.h"
#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"

namespace quorvane::qt {
namespace {

/// A sign says nothing to who can't see where it points.
QString Purpose(const Control& control) {
  if (control.Name() == "cmdAnterior") return "Anterior";
  if (control.Name() == "cmdSiguiente") return "Siguiente";
  return {};
}

/// What the mnemonics of the labels lead to.
std::vector<const QWidget*> Buddies(const FormWindow& window) {
  std::vector<const QWidget*> buddies;
  for (const auto* const label : window.findChildren<QLabel*>()) buddies.push_back(label->buddy());
  return buddies;
}

/// It bears a text, or the name of the label whose mnemonic leads to it.
bool HasName(const QWidget& widget, const std::vector<const QWidget*>& buddies) {
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  return !widget.accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty()) ||
         std::find(buddies.begin(), buddies.end(), &widget) != buddies.end();
}

/// The caption of the nearest label above, without its mnemonic and colon.
QString LabelAbove(const FormWindow& window, const Control& control) {
  const Label* nearest = nullptr;
  auto least = std::numeric_limits<int>::max();
  for (const auto* const other : window.Model().Controls()) {
    const auto* const label = dynamic_cast<const Label*>(other);
    if (label == nullptr || label->Container() != control.Container()) continue;
    const auto way = control.Top() - label->Top();
    const auto over = label->Left() < control.Left() + control.Width() &&
                      control.Left() < label->Left() + label->Width();
    if (!over || way <= 0 || way >= least || label->Caption().empty()) continue;
    least = way;
    nearest = label;
  }
  if (nearest == nullptr) return {};
  auto caption = LineText(nearest->Caption());
  caption.remove(u'&');
  while (caption.endsWith(u':') || caption.endsWith(u' ')) caption.chop(1);
  return caption;
}

}  // namespace

void NameForReaders(const FormWindow& window) {
  const auto buddies = Buddies(window);
  for (const auto& view : window.Views()) {
    auto* const widget = view->Widget();
    if (widget->focusPolicy() == Qt::NoFocus) continue;
    if (const auto purpose = Purpose(view->Model()); !purpose.isEmpty())
      widget->setAccessibleName(purpose);
    if (HasName(*widget, buddies)) continue;
    const auto above = LabelAbove(window, view->Model());
    widget->setAccessibleName(above.isEmpty() ? window.windowTitle() : above);
  }
}

}  // namespace quorvane::qt
