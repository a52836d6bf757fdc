#pragma once

#include <cstdint>
#include <functional>

namespace quorvane {

/// Walks the kinds of grade that are abbreviations, in all marking systems of the type of teaching,
/// and calls `alEncontrar` for each that is the tutor's observation. Error 3021 for a kind of grade
/// whose kind of subject is gone.
void RecorrerObservaciones(std::int32_t tipo, const std::function<void()>& alEncontrar);

}  // namespace quorvane
