#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/data/Recordset.h"

struct sqlite3;
struct sqlite3_stmt;

namespace quorvane::sqlite {

/// One statement prepared on a database, which has to outlive it.
class PreparedStatement {
 public:
  /// Error 0x80004005 when the engine refuses the text, or finds a second statement in it.
  /// `kept` tells the engine that it will be run many times.
  PreparedStatement(sqlite3* database, const std::string& text, bool kept);

  /// Whether it changes the database, as the engine sees it: what only begins or ends a transaction
  /// doesn't.
  [[nodiscard]] bool Writes() const;

  /// Binds the values, runs the statement to its end and gives its rows, all of them. Begins
  /// again while another connection is in the way, until `busyWait` has passed.
  Recordset Run(const std::vector<std::int64_t>& values, std::chrono::milliseconds busyWait);

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };

  void Bind(const std::vector<std::int64_t>& values);
  int Step(std::vector<Value>& cells);
  void ReadNames();

  sqlite3* database_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;  ///< null for a text without a statement
  std::shared_ptr<const FieldNames> names_;
  std::size_t expectedCells_ = 0;  ///< as many as the last run gave: room for them is taken at once
  int preparations_ = 0;  ///< how often the engine had prepared it anew when the names were read
};

}  // namespace quorvane::sqlite
