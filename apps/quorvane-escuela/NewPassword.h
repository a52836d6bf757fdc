#pragma once

#include <optional>
#include <string>

namespace quorvane {

/// Asks for a new password: twice on the terminal, with `question`, which doesn't show it
/// meanwhile, or one line of a standard input that is no terminal. None, and told on standard
/// error, when the two differ or nothing comes.
std::optional<std::string> AskNewPassword(const std::string& question);

}  // namespace quorvane
