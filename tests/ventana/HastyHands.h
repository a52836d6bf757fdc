#pragma once

#include <QPoint>
#include <optional>
#include <string>

#include "adapters/qt/window/FormWindow.h"
#include "apps/escuela/Prng.h"
#include "tests/ventana/InputQueue.h"

class QComboBox;
class QWidget;

namespace quorvane::test {

/// Draws what a user in a hurry does with what he sees, and puts it into the queue: he does not
/// look whether anything has happened yet.
class HastyHands {
 public:
  HastyHands(Prng& random, InputQueue& queue) : random_(random), queue_(queue) {}

  struct Deed {
    std::string text;  ///< for the history
    int gestures = 1;
    std::optional<QPoint> clicked = {};  ///< the place on the screen, of what begins with a click
  };

  /// Acts on the window of a form, or on what stands before it: a message, the list of a combo
  /// box, a menu. `window` is the form's.
  Deed Act(QWidget& front, const qt::FormWindow& window);
  /// Only keys: what arrives while a handler runs.
  Deed Type(QWidget& front, const qt::FormWindow& window);

 private:
  Deed Click(QWidget& front, const qt::FormWindow& window);
  Deed ClickBeside(QWidget& front);
  Deed ClickOn(QWidget& widget);
  Deed ClickAt(QPoint place, const std::string& text);
  Deed PickByKeys(QComboBox& box);
  [[nodiscard]] QPoint PlaceOn(QWidget& widget);
  [[nodiscard]] bool Chance(std::size_t thousandths) { return random_.Below(1000) < thousandths; }

  Prng& random_;
  InputQueue& queue_;
};

}  // namespace quorvane::test
