#pragma once

#include <functional>
#include <string>

namespace quorvane {

/// Writes a file that isn't there yet, its owner's alone (0600): at no time is there half a file of
/// that name, and a signal that ends the program leaves nothing. `goOn` is called when all is
/// written but its name, and may throw. Error 0x80004005 in Spanish when there is one of that name,
/// or it can't be written.
void WriteNewFile(const std::string& path, const std::string& content,
                  const std::function<void()>& goOn);

/// A text as a part of a file's name, which no folder, terminal or other system reads as something
/// else. Of a long one the beginning; two texts may give one name.
std::string AsFileName(const std::string& text);

}  // namespace quorvane
