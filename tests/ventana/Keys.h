#pragma once

#include <QString>
#include <Qt>
#include <array>
#include <cstddef>
#include <numeric>

#include "apps/escuela/Prng.h"
#include "tests/ventana/InputQueue.h"

namespace quorvane::test {

/// A key as somebody presses it.
struct KeyPress {
  Qt::Key key;
  const char* name;
  const char* text;
  int weight;  ///< how often, against the others
  Qt::KeyboardModifiers with = Qt::NoModifier;
};

inline constexpr std::array kKeys = std::to_array<KeyPress>({
    {Qt::Key_0, "0", "0", 4},
    {Qt::Key_1, "1", "1", 8},
    {Qt::Key_3, "3", "3", 6},
    {Qt::Key_5, "5", "5", 8},
    {Qt::Key_7, "7", "7", 8},
    {Qt::Key_8, "8", "8", 8},
    {Qt::Key_9, "9", "9", 8},
    {Qt::Key_A, "a", "a", 3},
    {Qt::Key_R, "r", "r", 3},
    {Qt::Key_N, "n", "n", 3},
    {Qt::Key_Tab, "Tab", "\t", 16},
    {Qt::Key_Backtab, "Mayús+Tab", "", 5, Qt::ShiftModifier},
    {Qt::Key_Tab, "Ctrl+Tab", "\t", 1, Qt::ControlModifier},
    {Qt::Key_Return, "Intro", "\r", 12},
    {Qt::Key_Return, "Mayús+Intro", "\r", 3, Qt::ShiftModifier},
    {Qt::Key_F2, "F2", "", 4},
    {Qt::Key_Space, "Espacio", " ", 5},
    {Qt::Key_Backspace, "Retroceso", "\b", 4},
    {Qt::Key_Delete, "Supr", "\x7f", 3},
    {Qt::Key_Left, "Izquierda", "", 4},
    {Qt::Key_Right, "Derecha", "", 7},
    {Qt::Key_Up, "Arriba", "", 5},
    {Qt::Key_Down, "Abajo", "", 9},
    {Qt::Key_Down, "Ctrl+Abajo", "", 4, Qt::ControlModifier},
    {Qt::Key_Up, "Ctrl+Arriba", "", 2, Qt::ControlModifier},
    {Qt::Key_Home, "Inicio", "", 2},
    {Qt::Key_End, "Fin", "", 2},
    {Qt::Key_PageUp, "RePág", "", 2},
    {Qt::Key_PageDown, "AvPág", "", 2},
});

inline constexpr KeyPress kEscape{Qt::Key_Escape, "Esc", "\x1b", 1};

/// One of the things, which have weights above 0, drawn by these.
template <class Things, class Weight>
const auto& Weighted(Prng& random, const Things& things, Weight weight) {
  const auto total =
      std::accumulate(things.begin(), things.end(), 0,
                      [&weight](int sum, const auto& thing) { return sum + weight(thing); });
  auto left = static_cast<int>(random.Below(static_cast<std::size_t>(total)));
  for (const auto& thing : things) {
    left -= weight(thing);
    if (left < 0) return thing;
  }
  return things.back();
}

/// Any key that grades are entered with; Esc so many times in a thousand.
inline const KeyPress& AnyKey(Prng& random, std::size_t escapes) {
  if (random.Below(1000) < escapes) return kEscape;
  return Weighted(random, kKeys, [](const auto& key) { return key.weight; });
}

/// Puts it into the queue for that window; null for the one that has the keyboard by then.
inline void Put(InputQueue& queue, QWindow* window, const KeyPress& press) {
  queue.Key(window, press.key, press.with, QString::fromUtf8(press.text));
}

}  // namespace quorvane::test
