#pragma once

namespace quorvane {
class Form;
}

namespace quorvane::qt {

class FormWindow;

/// Whether there is a layout for the form of that name; one without places its controls itself.
bool HasLayout(const Form& form);
/// Whether the form has a layout that says that it holds work, see `HoldsWork`.
bool IsLaidOutForWork(const Form& form);
/// Whether accepting the form does nothing unless another of its buttons was pressed before.
bool IsIdleUnlessAsked(const Form& form);
/// Arranges the window's widgets by the layout of its form, which has one.
void LayOut(FormWindow& window);

}  // namespace quorvane::qt
