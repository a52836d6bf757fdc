#pragma once

namespace quorvane::qt {

class Stage;

/// The chosen on the left, the others on the right, each under its label, and between them the
/// buttons that move entries; for the forms with these two lists.
void PlaceDualList(Stage& stage);

}  // namespace quorvane::qt
