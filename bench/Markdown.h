#pragma once

#include <string>
#include <vector>

namespace quorvane::bench {

// What the tables of the reports are printed with.

/// A line as `| one | other |`.
void Line(const std::vector<std::string>& cells);
/// The line of the columns' names, the first to the left and the others to the right.
void Head(const std::vector<std::string>& cells);
void Title(const std::string& title);
/// What the figures were made on, so that two pages can be held against each other.
void Machine(const std::string& engine);

std::string Number(double number, int decimals);
std::string Milliseconds(double seconds);
std::string Thousands(int number);
/// The cell of a limit, 0 for none; `within` becomes false when the figure is over it.
std::string Limit(double figure, double limit, bool& within);

}  // namespace quorvane::bench
