#pragma once

#include <string>

namespace CLI {
class ParseError;
}

namespace quorvane {

/// What is wrong with a program's arguments, in Spanish and fit for a terminal.
std::string Complaint(const CLI::ParseError& error);

}  // namespace quorvane
