#pragma once

#include <string>

#include "adapters/sqltext/Dialect.h"
#include "platform/data/Recordset.h"
#include "platform/data/Value.h"

namespace quorvane {

/// A value as a statement takes it that is printed on one line for somebody to play: of a text,
/// what would act on a terminal is called by its number; `bytes` are a file's value of no text.
std::string UndoLiteral(const Value& value, sqltext::Engine engine, bool bytes = false);

/// The name of the column that `BytesMarks` gives.
inline constexpr auto kBytesMarks = "MarcasBytes";

/// What a SELECT of these columns has to read behind them to tell bytes from texts in a file, a
/// letter each, 'b' for bytes; empty on a server, whose schools hold none.
std::string BytesMarks(const FieldNames& columns, sqltext::Engine engine);

/// The name of a column as a statement takes it, whatever it is called.
std::string UndoName(const std::string& name);

}  // namespace quorvane
