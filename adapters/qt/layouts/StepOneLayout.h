#pragma once

namespace quorvane::qt {

class Stage;

/// The two frames that every step-one dialog begins with.
void PlaceSelection(Stage& stage);
/// A third frame, for the one thing that a section dialog asks for, with the buttons that go to the
/// entry before and after.
void PlaceChoice(Stage& stage, const char* list);
/// Check boxes and buttons, which every step-one dialog ends with.
void PlaceStepOneEnd(Stage& stage);

}  // namespace quorvane::qt
