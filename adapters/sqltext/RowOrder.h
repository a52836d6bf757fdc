#pragma once

#include <string>
#include <string_view>

namespace quorvane::sqltext {

/// The module takes rows in the order in which they come: Null before all else where it asks for an
/// order, and by their keys where it doesn't, or where rows are equal in it. This engine puts Null
/// last, and gives what nobody ordered as it was last written, so that a list would change with
/// each save. Writes NULLS FIRST behind what a SELECT is ordered by, and orders what is left by the
/// columns that it gives. A statement that already tells of either, limits its rows or gives a
/// single one, as an aggregate does, stays as it is.
std::string OrderAsInAFile(std::string_view statement);

}  // namespace quorvane::sqltext
