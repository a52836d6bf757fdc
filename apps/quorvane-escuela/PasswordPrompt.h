#pragma once

#include <optional>
#include <string>

namespace quorvane {

/// Asks for a new password: twice on the terminal, which doesn't show it meanwhile, or one line of
/// a standard input that is no terminal. `question` goes to standard error. None, and told there,
/// when the two differ or nothing comes.
std::optional<std::string> AskNewPassword(const std::string& question);

}  // namespace quorvane
