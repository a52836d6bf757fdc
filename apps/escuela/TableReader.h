#pragma once

#include <memory>

#include "adapters/sqltext/Dialect.h"
#include "apps/escuela/CopiedTable.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// Reads a table part by part, so that a large one needs no more memory than a small one: in the
/// order of its key, or without one as it is stored, where the engine tells. Rows that stand twice
/// come twice.
class TableReader {
 public:
  /// `school` is open on `engine`, in a transaction, with no other reader at work; both it and the
  /// table outlive the reader.
  static std::unique_ptr<TableReader> Make(Connection& school, sqltext::Engine engine,
                                           const CopiedTable& table);

  TableReader() = default;
  virtual ~TableReader() = default;
  TableReader(const TableReader&) = delete;
  TableReader& operator=(const TableReader&) = delete;
  TableReader(TableReader&&) = delete;
  TableReader& operator=(TableReader&&) = delete;

  /// The next rows, the copied columns first; none behind the last.
  virtual Recordset Next() = 0;
};

}  // namespace quorvane
