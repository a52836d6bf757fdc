#pragma once

#include <string>
#include <vector>

#include "apps/escuela/import/CsvText.h"

namespace quorvane {

/// The columns of a file by what their headings say.
class ImportColumns {
 public:
  /// Error 0x80004005 in Spanish for a heading that is missing, unknown or there twice.
  explicit ImportColumns(const CsvRow& heading);

  /// The cell of a row; empty where it has none.
  [[nodiscard]] std::string Student(const CsvRow& row) const;
  [[nodiscard]] std::string Section(const CsvRow& row) const { return Cell(row, kSection); }
  [[nodiscard]] std::string Subject(const CsvRow& row) const { return Cell(row, kSubject); }
  [[nodiscard]] std::string Course(const CsvRow& row) const { return Cell(row, kCourse); }
  [[nodiscard]] std::string Evaluations(const CsvRow& row) const { return Cell(row, kEvaluations); }
  [[nodiscard]] std::string Teacher(const CsvRow& row) const { return Cell(row, kTeacher); }
  [[nodiscard]] std::size_t Count() const noexcept { return count_; }

 private:
  enum Column {
    kStudent,
    kSurnames,
    kName,
    kSection,
    kSubject,
    kCourse,
    kEvaluations,
    kTeacher,
    kColumns
  };
  [[nodiscard]] std::string Cell(const CsvRow& row, Column column) const;
  [[nodiscard]] bool Has(Column column) const { return places_[column] >= 0; }

  std::vector<int> places_ = std::vector<int>(kColumns, -1);
  std::size_t count_ = 0;
};

}  // namespace quorvane
