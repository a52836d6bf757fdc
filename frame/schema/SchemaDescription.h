#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "frame/schema/SchemaTable.h"

namespace quorvane {

/// The words of a description, in the order of their enumerators.
inline constexpr std::array<std::string_view, 7> kSchemaKindWords = {
    "key", "long", "short", "byte", "flag", "text", "date"};
inline constexpr std::array<std::string_view, 4> kSchemaMarkWords = {"", "free name", "free place",
                                                                     "host"};
inline constexpr std::string_view kByPosition = "by position";

/// A database as a text describes it; school.schema tells how such a text is written.
struct SchemaDescription {
  std::vector<std::string> heading;  ///< the comment on the whole, its lines with their dashes
  std::vector<SchemaTable> tables;
};

/// Reads a description. A line that can't be is std::invalid_argument: "line 7: ..." and why.
SchemaDescription ReadSchema(std::string_view text);

}  // namespace quorvane
