#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqltext/Dialect.h"
#include "platform/data/Recordset.h"

namespace quorvane {

/// What a repair has done, told by the statements that would undo it.
class RepairJournal {
 public:
  explicit RepairJournal(sqltext::Engine engine) : engine_(engine) {}

  /// The current row of `rows` has been removed from `table`: its columns up to the marks of bytes,
  /// or the rank among rows that stand twice, where these are there.
  void Removed(std::string_view table, const Recordset& rows, const std::string& reason);
  /// A row has been changed; `undo` changes it back.
  void Changed(const std::string& undo, const std::string& reason);

  [[nodiscard]] std::size_t RemovedRows() const noexcept { return removed_; }
  [[nodiscard]] std::size_t ChangedRows() const noexcept { return changed_; }
  [[nodiscard]] std::size_t Rows() const noexcept { return removed_ + changed_; }
  /// One for each row, with the reason as a comment behind it, in the order in which they undo it:
  /// what was done last comes first.
  [[nodiscard]] std::vector<std::string> Undo() const { return {undo_.rbegin(), undo_.rend()}; }

 private:
  sqltext::Engine engine_;
  std::vector<std::string> undo_;
  std::size_t removed_ = 0;
  std::size_t changed_ = 0;
};

}  // namespace quorvane
