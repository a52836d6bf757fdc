#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "apps/escuela/SchoolAddress.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// Which changes are asked for; 0 and the empty text for any.
struct HistoryFilter {
  std::int32_t student = 0;
  std::int32_t subject = 0;  ///< `MateriaDetalles`
  std::int32_t evaluation = 0;
  std::int32_t user = 0;
  std::int32_t either = 0;   ///< what this member of staff may grade, as tutor or teacher
  std::int32_t pending = 0;  ///< `IDAlumnoPte_MatDet`: one subject of one student
  std::string from;          ///< a moment as yyyy-mm-dd, or the beginning of one; of UTC
  std::string to;            ///< a day, which counts too
};

/// A change of a grade, or a row that came or went.
struct GradeChange {
  std::string moment;  ///< UTC, "2025-03-03 12:00:00.000"
  std::string student;
  std::string subject;
  std::string evaluation;
  std::string column;  ///< "Nota", "Actitud", ...; "Alta" and "Baja" for a row
  std::string before;  ///< the grade's text; empty for none
  std::string after;
  std::string user;  ///< empty when nobody held the subject
};

/// The history of grades of a school: off until it is switched on, and then kept by the engine,
/// whoever writes. `school` is open.
class GradeHistory {
 public:
  explicit GradeHistory(Connection& school) : school_(school), engine_(EngineReached(school)) {}

  /// Whether all changes are kept now: not with a piece of it missing or switched off.
  [[nodiscard]] bool Active() const;
  /// Whether there is anything to be looked at.
  [[nodiscard]] bool Kept() const;

  /// Who may read grades there may read the history, too. Without effect on one that is active;
  /// one that lacks a piece, a column too, is made whole.
  /// The engine's error, with nothing changed, for one who may not.
  void Activate();
  /// The statements that have this school's engine keep it, in order. Error 0x80004005 for a school
  /// without its table of locks.
  [[nodiscard]] std::vector<std::string> TriggersSql() const;
  /// What has been kept stays.
  void Deactivate();
  /// Removes what was kept before a day (yyyy-mm-dd, UTC); how many rows.
  std::int32_t Purge(const std::string& before);

  /// In the order in which it happened; empty where none was ever kept. Error 0x80004005 in Spanish
  /// for a table that lacks a column.
  [[nodiscard]] std::vector<GradeChange> Read(const HistoryFilter& filter) const;

 private:
  void GrantReading();

  Connection& school_;
  sqltext::Engine engine_;
};

}  // namespace quorvane
