#pragma once

namespace quorvane::qt {

class FormWindow;

/// Has a screen reader call each control of a form by a name: one that bears none itself, and no
/// label on its left, by the label above it, by what its button is for, or by the form's title.
void NameForReaders(const FormWindow& window);

}  // namespace quorvane::qt
