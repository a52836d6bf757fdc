#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "apps/escuela/report/SectionReport.h"
#include "apps/escuela/state/PendingTeachers.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// Reads what reports tell. Students that have left are in none.
class ReportReader {
 public:
  /// `school` is open and outlives it. `name` of the school and `date` as reports print them.
  /// With `staff`, what that one may grade and nothing else; 0 for all.
  ReportReader(Connection& school, std::string name, std::string date, std::int32_t staff = 0);

  /// False once its server has been lost.
  [[nodiscard]] bool Reaches() const { return school_.IsOpen(); }

  /// The sections whose students have pending subjects, by number, in the order of the courses.
  [[nodiscard]] std::vector<std::pair<std::int32_t, std::string>> Sections() const;

  /// The subjects («Matemáticas (2º ESO A)») that are pending, by number, in the same order.
  [[nodiscard]] std::vector<std::pair<std::int32_t, std::string>> Subjects() const;

  /// The one of that number or name («Matemáticas (2º ESO A)» for a subject). Error 0x80004005 in
  /// Spanish, with the candidates, where there is none or are several.
  [[nodiscard]] std::int32_t FindSection(const std::string& text) const;
  [[nodiscard]] std::int32_t FindSubject(const std::string& text) const;

  /// Of a section, or of one of its students alone unless that is 0. Error 0x80004005 in Spanish
  /// where there is no such section, or no such student in it.
  [[nodiscard]] SectionReport Section(std::int32_t section, std::int32_t student = 0) const;
  /// Of all students that have the subject (`MateriaDetalles`) pending, with that subject alone.
  /// Error 0x80004005 in Spanish where there is none.
  [[nodiscard]] SectionReport Subject(std::int32_t subject) const;

 private:
  [[nodiscard]] SectionReport Read(const std::string& title, const std::string& condition) const;
  /// `from` gives the pending subjects.
  void ReadGrades(const std::string& table, const std::string& from,
                  const std::map<std::int32_t, ReportSubject*>& subjects) const;
  [[nodiscard]] std::string GradeText(std::int32_t grade) const;

  Connection& school_;
  std::string name_;
  std::string date_;
  std::string told_;  ///< the condition of all that is
  std::vector<ReportEvaluation> evaluations_;
  std::map<std::int32_t, std::string> grades_;
  PendingTeachers teachers_;
};

}  // namespace quorvane
