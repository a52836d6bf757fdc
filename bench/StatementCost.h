#pragma once

#include <string>
#include <vector>

#include "bench/RecordedStatement.h"

namespace quorvane::bench {

/// Where the processor's time of one SELECT goes whose prepared statement is kept: nanoseconds a
/// statement, each step measured by itself over the same statements.
struct StatementCost {
  std::size_t statements = 0;
  double engine = 0;      ///< binding, stepping, reading every column and resetting, nothing else
  double fileLock = 0;    ///< what the engine takes to lock the file for each, and to free it
  double joining = 0;     ///< the text, out of its pieces and numbers
  double connection = 0;  ///< what stands before the adapter: open, trace, observer
  double finding = 0;     ///< the prepared statement and the values, by the text
  double expected = 0;    ///< how many of 100 are found as what followed the one before last time
  double lifting = 0;     ///< what finding takes for the others: the numbers out of the text,
  double lookUp = 0;      ///< and the rest among all that are kept
  double rows = 0;        ///< making a recordset of what the engine gives
  double columns = 0;     ///< reading every column of every row by its name
  double whole = 0;       ///< executing it, from the text to the recordset

  /// All that isn't the engine's.
  [[nodiscard]] double Module() const { return joining + connection + finding + rows + columns; }
};

/// The SELECTs among those statements; the other ones are left out.
StatementCost MeasureStatements(const std::string& file,
                                const std::vector<RecordedStatement>& statements);

/// As a Markdown table on standard output. False when the module's share is over the engine's.
bool Print(const StatementCost& cost);

}  // namespace quorvane::bench
