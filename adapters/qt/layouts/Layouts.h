#pragma once

namespace quorvane::qt {

class FormWindow;

/// Arranges the window's widgets if there is a layout for the form of that name. False when there
/// is none: such a form places its controls itself.
bool LayOut(FormWindow& window);

}  // namespace quorvane::qt
