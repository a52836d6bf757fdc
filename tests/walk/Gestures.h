#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/escuela/Prng.h"
#include "platform/controls/Form.h"

namespace quorvane::test {

/// Something that a user can do now: on a control that he sees and that is enabled.
struct Gesture {
  int weight = 0;  ///< how often it is done, against the others
  std::string text;
  bool accepts = false;  ///< may press the button "Aceptar"
  std::function<void()> act;
};

/// All kinds of gestures that the form takes as it stands, each with an entry, row or text drawn
/// for it. Weighted so that forms are filled in, gone through, saved and left. There is always one:
/// a window can be closed. The gestures are good until the form changes.
std::vector<Gesture> GesturesOn(Form& form, Prng& random);

/// The user closes the window with its X.
Gesture CloseWindow(Form& form);

}  // namespace quorvane::test
