#pragma once

#include <string>

#include "adapters/sqltext/Dialect.h"
#include "frame/schema/SchemaTable.h"
#include "platform/data/Value.h"

namespace quorvane {

/// Appends a value to a statement as an engine takes it for a column of the school's. What wouldn't
/// arrive there as it is, is error 0x80004005, whose text tells what the value is and why it has no
/// place, to be read behind "la columna X tiene ".
void AppendLiteral(std::string& statement, const Value& value, SchemaKind kind,
                   sqltext::Engine engine);

}  // namespace quorvane
