#pragma once

#include <string>
#include <string_view>

namespace quorvane::sqltext {

/// `FROM t WHERE x NOT IN (SELECT y FROM u)`, by which the module looks for rows whose partner is
/// gone. Some engines look through all that the inner SELECT gives for each row as soon as it is
/// more than their memory for one step: minutes in a large school. Writes it as NOT EXISTS, which
/// they join, and with it what NOT IN makes of Null: none where `y` has one, nor a row whose `x` is
/// Null, unless `u` is empty. Any other text stays as it is.
std::string JoinExcludedSelects(std::string_view statement);

}  // namespace quorvane::sqltext
