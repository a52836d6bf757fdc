#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "apps/zendria/GradeCell.h"

namespace quorvane {
class ComboBox;
class Form;
class Retivo;
class cMateria;
}  // namespace quorvane

namespace quorvane::zendria {

/// What a column of the grid stands for in memory and in the table.
struct GradeField {
  int column;
  std::int32_t (*stored)(const cMateria&);
  const char* name;  ///< empty for a column that no save writes
};

/// One of the eight grade forms as the host looks at it: they differ in what they walk and in what
/// their rows are. Made for a moment; the form outlives it.
class GradeForm {
 public:
  GradeForm() = default;
  virtual ~GradeForm() = default;
  GradeForm(const GradeForm&) = delete;
  GradeForm& operator=(const GradeForm&) = delete;
  GradeForm(GradeForm&&) = delete;
  GradeForm& operator=(GradeForm&&) = delete;

  [[nodiscard]] virtual GradeSheet Sheet() const = 0;
  [[nodiscard]] virtual const Retivo& Grid() const = 0;
  /// The list that is walked; the rows of the grid are of its selected entry.
  [[nodiscard]] virtual const ComboBox& Walk() const = 0;
  [[nodiscard]] virtual bool WalksStudents() const = 0;
  /// It loads or saves, and shows nothing else.
  [[nodiscard]] virtual bool AtWork() const = 0;
  /// What is typed can be saved; in a school year that is closed it is only looked at.
  [[nodiscard]] virtual bool Saves() const = 0;
  /// The publication that its own locks bear; 0 for none.
  [[nodiscard]] virtual std::int32_t Publication() const = 0;

  /// Keys and texts of student and subject of a row of the grid. Errors as the form's own.
  virtual void ReadRow(GradeCell& cell, int row) const = 0;
  /// The same of the grid's current row.
  void ReadPlace(GradeCell& cell) const;
  /// The subject by the cell's keys; null when the form doesn't have it.
  [[nodiscard]] virtual const cMateria* Subject(const GradeCell& cell) const = 0;
  /// The entry of the walk under which that cell stands, and what its row has in the last column.
  [[nodiscard]] virtual int WalkEntry(const GradeCell& cell) const = 0;
  [[nodiscard]] const std::string& RowKey(const GradeCell& cell) const {
    return WalksStudents() ? cell.subject : cell.student;
  }
  /// Null for a column that holds no grade, and in a recovery, which shows and saves none.
  [[nodiscard]] virtual const GradeField* Field(int column) const = 0;
};

/// Null for a form that is none of the eight.
std::unique_ptr<const GradeForm> AsGradeForm(const Form& form);

}  // namespace quorvane::zendria
