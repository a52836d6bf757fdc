#pragma once

#include <string>
#include <string_view>

#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/SchoolRules.h"
#include "apps/escuela/repair/RepairJournal.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// Mends rows of a school that is open for writing, each kind of fault by itself. What one mends
/// may leave a fault of another kind: the rows of a subject that has been removed.
class RowRepairs {
 public:
  /// Both outlive the repairs.
  RowRepairs(Connection& school, RepairJournal& journal)
      : school_(school), journal_(journal), engine_(EngineReached(school)) {}

  /// A reference to nothing: an optional one is cleared, and the row of another goes.
  void Orphans(const Reference& reference);
  /// Grades in the table of the other kind of evaluation: they move to theirs, unless they stand
  /// there already.
  void Misplaced(std::string_view table, std::string_view other, std::string_view otherKind);
  /// Rows that stand twice: the one with a grade, a teacher or the later end stays, else the first.
  /// The grades of a doubled pending subject go to the one that stays.
  void Doubles(const Unique& unique);
  /// Rows that share a primary key, in schools whose engine lets them. A row of grades, whose key
  /// nobody refers to, gets a new one.
  void DoubledKeys(std::string_view table, std::string_view key);

 private:
  void Clear(const Reference& reference, const std::string& condition, const std::string& reason);
  void Remove(std::string_view table, const std::string& condition, const std::string& reason);
  /// Those of pending subjects that are about to go: while they are there, whoever keeps a history
  /// of grades can tell whose they were.
  void RemoveGrades(const std::string& condition);
  void MoveGrades(std::string_view table);
  std::int32_t NextKey(std::string_view table, std::string_view key);

  Connection& school_;
  RepairJournal& journal_;
  sqltext::Engine engine_;
};

}  // namespace quorvane
