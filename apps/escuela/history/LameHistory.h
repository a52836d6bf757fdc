#pragma once

#include <string>
#include <vector>

#include "apps/escuela/repair/RepairJournal.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// The triggers of a history of grades whose table, or a column of it, somebody has removed. In a
/// file every save of a grade fails then, and elsewhere nothing is kept.
class LameHistory {
 public:
  /// `school` is open, and outlives it.
  explicit LameHistory(Connection& school);

  /// Their names; empty where the whole table is there, or no history. No statement fails for want
  /// of a table: in a transaction others go on behind it.
  [[nodiscard]] std::vector<std::string> Triggers() const;
  /// As `comprobar` tells it; empty for none.
  [[nodiscard]] std::vector<std::string> Findings() const;
  /// Removes them. The one who undoes it makes them again.
  void Remove(RepairJournal& journal) const;

 private:
  Connection& school_;
  sqltext::Engine engine_;
};

}  // namespace quorvane
