#pragma once

#include <Qt>
#include <vector>

#include "apps/escuela/Prng.h"

class QWindow;

namespace quorvane::test {

class InputQueue;

/// A key as somebody presses it.
struct KeyPress {
  Qt::Key key;
  const char* name;
  const char* text;
  int weight;  ///< how often, against the others
  Qt::KeyboardModifiers with = Qt::NoModifier;
};

/// Any key that grades are entered with; Esc so many times in a thousand.
const KeyPress& AnyKey(Prng& random, std::size_t escapes);

/// Puts it into the queue for that window; null for the one that has the keyboard by then.
void Put(InputQueue& queue, QWindow* window, const KeyPress& press);

}  // namespace quorvane::test
