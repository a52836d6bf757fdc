#pragma once

namespace quorvane::qt {

class FormWindow;

/// Puts the widgets where the models' own measures say, one before the other by their layers: for
/// forms that arrange their controls themselves.
void PlaceByModel(FormWindow& window);

}  // namespace quorvane::qt
