#pragma once

#include <string>

#include "frame/schema/SchemaDescription.h"
#include "frame/schema/SchemaEngine.h"

namespace quorvane {

/// The statements that make a described database on an engine, the tables in their order and then
/// the indexes, parted by semicolons, with the description's comments and marks.
std::string SchemaSql(const SchemaDescription& description, const SchemaEngine& engine);

}  // namespace quorvane
