#pragma once

#include <string>

namespace quorvane {

/// Ends what a tool was asked to do, with error -2147467259 and the text that its user reads.
[[noreturn]] void Refuse(const std::string& text);

/// The same for a file that can't be made: "No se puede crear PATH: REASON".
[[noreturn]] void RefuseToCreate(const std::string& path, const std::string& reason);

/// And for one that can't be written: "No se puede escribir PATH: REASON".
[[noreturn]] void RefuseToWrite(const std::string& path, const std::string& reason);

}  // namespace quorvane
