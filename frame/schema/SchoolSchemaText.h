#pragma once

#include <string_view>

namespace quorvane {

/// The text of school.schema, which the build lays into the library.
std::string_view SchoolSchemaText();

}  // namespace quorvane
