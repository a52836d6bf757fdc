#pragma once

#include <string>
#include <string_view>

namespace quorvane::sqltext {

/// The module nests its outer joins in brackets. This engine builds what stands in the brackets
/// whole, all rows of the school, before it joins it. Writes each such FROM as one chain of joins,
/// which the engine walks by its indexes, where that gives the same rows: when a joined bracket
/// holds only left joins and all conditions are equalities of two columns, the one before the
/// bracket on its first table. Any other text stays as it is.
std::string FlattenJoins(std::string_view statement);

}  // namespace quorvane::sqltext
