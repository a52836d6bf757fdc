#pragma once

#include <string>

namespace quorvane {

/// Gives a file that has been written its name, which no other may bear: also one that somebody has
/// made meanwhile stays as it is. `from` may be there still. Why it couldn't, in Spanish; empty
/// when it has it.
std::string PublishFile(const std::string& from, const std::string& to);

}  // namespace quorvane
