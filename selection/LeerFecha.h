#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace quorvane {

/// The day that a host's text tells: day, month and year parted by "/" or "-", as dd/mm/yyyy with a
/// year of two digits (00 to 29 are of this century) or four, or beginning with a year of four; a
/// time may follow. None for a text that is no date.
std::optional<std::chrono::year_month_day> LeerFecha(std::string_view texto);

}  // namespace quorvane
