#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// What a student is helped with in a subject (RE_AC_DIV), in words; empty for any other number.
std::string MeasureText(std::int32_t measure);

}  // namespace quorvane
