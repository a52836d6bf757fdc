#pragma once

#include <string>
#include <vector>

#include "bench/Measure.h"
#include "bench/RecordedStatement.h"

namespace quorvane::bench {

/// A way to run recorded statements without this module: each prepared, stepped through and
/// finalized afresh, as a program does that hands its texts to the library. The texts are those of
/// the module, but for the joining of texts, which SQLite writes `||`.
struct Library {
  const char* name;
  /// What all of them take on that file, durable at the end as the module's own are; opening the
  /// file isn't measured. Ends the program when one fails or gives another number of rows.
  Time (*replay)(const std::string& file, const std::vector<RecordedStatement>& statements);
};

/// SQLite's own interface first, the one that the module is held against; Qt's only where the
/// benchmark was built with it.
const std::vector<Library>& Libraries();
bool HasQt();

Time ReplayWithSqlite(const std::string& file, const std::vector<RecordedStatement>& statements);
Time ReplayWithSqliteCpp(const std::string& file, const std::vector<RecordedStatement>& statements);
#ifdef QUORVANE_BENCH_QT
Time ReplayWithQt(const std::string& file, const std::vector<RecordedStatement>& statements);
#endif

/// The text as SQLite takes it.
std::string ForSqlite(std::string text);

/// Ends the program unless the replay of a statement gave as many rows as the module got.
void RequireRows(const char* library, const RecordedStatement& statement, std::size_t rows);

[[noreturn]] void ReplayFailed(const char* library, const std::string& reason,
                               const std::string& text);

}  // namespace quorvane::bench
