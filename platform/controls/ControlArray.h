#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "platform/controls/Frame.h"

namespace quorvane {

/// A control array. Its elements bear its name with their index, "fraTab(0)", and stand on the form
/// itself:
///
///   std::array<Frame, 2> fraTab = ControlArray<Frame, 2>(*this, "fraTab");
template <class T, std::size_t N>
std::array<T, N> ControlArray(Form& form, const std::string& name) {
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    return std::array<T, N>{T(form, name + "(" + std::to_string(I) + ")")...};
  }
  (std::make_index_sequence<N>());
}

/// The same of controls on frames: an element for each index of a frame, on which it stands:
///
///   ControlArray<Label>(*this, "lblNotamanual1", fraNotaManual1, {0, 0, 0, 1})
template <class T, std::size_t N, std::size_t M>
std::array<T, N> ControlArray(Form& form, const std::string& name,
                              const std::array<Frame, M>& frames, const std::size_t (&on)[N]) {
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    return std::array<T, N>{T(form, name + "(" + std::to_string(I) + ")", &frames.at(on[I]))...};
  }
  (std::make_index_sequence<N>());
}

}  // namespace quorvane
