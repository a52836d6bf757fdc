#pragma once

#include <string>
#include <string_view>

namespace quorvane::sqltext {

/// The module orders a UNION by columns with their table's name. Of a UNION some engines only know
/// the columns that its first SELECT gives, by their plain names: takes the tables away from the
/// ORDER BY behind a UNION. Any other text stays as it is.
std::string OrderUnionByColumns(std::string_view statement);

}  // namespace quorvane::sqltext
