#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "apps/escuela/state/PendingTeachers.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// Which pending grades count.
struct StateFilter {
  std::int32_t evaluation = 0;  ///< 0 for all
  std::int32_t centre = 0;      ///< 0 for all: sections of the kinds of teaching that it gives
  bool missingOnly = false;     ///< rows in which nothing is missing are left out
  std::int32_t tutor = 0;       ///< sections of this member of staff alone; 0 for all
  std::int32_t teacher = 0;     ///< subjects of this one alone; 0 for all
  std::int32_t either = 0;      ///< what this one may grade, as tutor or teacher; 0 for all
};

/// How many grades a group of pending subjects has in an evaluation, and how many it should have.
struct StateRow {
  std::int32_t evaluation = 0;
  std::int32_t section = 0;  ///< that the students are in
  std::int32_t subject = 0;  ///< `MateriaDetalles`; 0 for all of the section
  std::int32_t teacher = 0;  ///< of the subject; 0 for none, or for all
  int pending = 0;
  int entered = 0;
  int locked = 0;  ///< subjects that somebody has open now

  [[nodiscard]] int Missing() const noexcept { return pending - entered; }
};

/// The days between which grades may be entered, as yyyy/mm/dd; both empty where every day will do.
struct StateWindow {
  std::string from;
  std::string to;
  bool open = true;  ///< today
};

/// How far the evaluations of a school have come. What counts is what the screens of grades offer:
/// subjects of active students, of a kind that is graded; a second final only where the first has
/// been failed, and for work placements. Reads with single statements, in no transaction.
class SchoolState {
 public:
  struct Evaluation {
    std::int32_t id = 0;
    std::string name;
    bool final = false;
  };

  /// `school` is open and outlives it; `today` as yyyy/mm/dd, the day that windows are held
  /// against.
  SchoolState(Connection& school, std::string today);

  /// In the order in which they take place.
  [[nodiscard]] const std::vector<Evaluation>& Evaluations() const noexcept { return evaluations_; }

  /// A row for each section, in the order of the evaluations and then of the courses.
  [[nodiscard]] std::vector<StateRow> Sections(const StateFilter& filter) const;
  /// A row for each subject of a section; of one section alone unless that is 0.
  [[nodiscard]] std::vector<StateRow> Subjects(const StateFilter& filter,
                                               std::int32_t section = 0) const;

  [[nodiscard]] std::string EvaluationName(std::int32_t id) const;
  [[nodiscard]] std::string SectionName(std::int32_t id) const;
  /// "Matemáticas (2º ESO A)".
  [[nodiscard]] std::string SubjectName(std::int32_t id) const;
  /// As `PendingTeachers::Name`.
  [[nodiscard]] std::string TeacherName(std::int32_t id) const { return teachers_.Name(id); }
  [[nodiscard]] StateWindow Window(std::int32_t section, std::int32_t evaluation) const;

 private:
  /// Evaluations whose grades are counted alike, and so in one statement.
  struct Alike {
    bool final = false;
    bool secondFinal = false;
    std::string numbers;  ///< with commas between them
  };

  void ReadEvaluations();
  void ReadNames();
  /// Of that evaluation alone unless it is 0.
  [[nodiscard]] std::vector<Alike> AlikeOnes(std::int32_t only) const;
  [[nodiscard]] std::string Statement(const Alike& alike, const StateFilter& filter, bool bySubject,
                                      std::int32_t section) const;
  [[nodiscard]] std::vector<StateRow> Read(const StateFilter& filter, bool bySubject,
                                           std::int32_t section) const;
  [[nodiscard]] std::vector<StateRow> Sorted(const std::vector<StateRow>& rows) const;
  void MarkLocks(std::vector<StateRow>& rows, bool bySubject) const;

  Connection& school_;
  std::string today_;
  std::vector<Evaluation> evaluations_;
  std::set<std::int32_t> secondFinals_;
  std::string firstFinal_;
  std::map<std::int32_t, std::pair<std::string, int>> sections_;  ///< name, and place in the school
  mutable std::map<std::int32_t, std::pair<std::string, std::int32_t>> subjects_;
  PendingTeachers teachers_;
  std::map<std::pair<std::int32_t, std::int32_t>, StateWindow> windows_;
};

}  // namespace quorvane
