#pragma once

#include <string>
#include <string_view>

namespace quorvane::sqltext {

/// The name that a column of a statement goes by. Where tables of one nested join have columns of
/// the same name, the engine numbers the later ones, as in "Descripcion:1". Nobody asked for them
/// by that name.
std::string FieldName(std::string_view name, std::string_view statement);

}  // namespace quorvane::sqltext
