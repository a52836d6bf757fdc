#pragma once

#include <string>

namespace quorvane {

/// Writes a file that isn't there yet: at no time is there half a file of that name. Error
/// 0x80004005 in Spanish when there is one, or it can't be written.
void WriteNewFile(const std::string& path, const std::string& content);

/// A text as a part of a file's name.
std::string AsFileName(const std::string& text);

}  // namespace quorvane
