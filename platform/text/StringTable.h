#pragma once

#include <string>

namespace quorvane {

/// The title of every message box.
inline constexpr int kTitleString = 100;

/// The text under that number in the module's string table, which is the same in all languages
/// and holds the title alone. Error 326 for any other number.
std::string LoadString(int id);

}  // namespace quorvane
