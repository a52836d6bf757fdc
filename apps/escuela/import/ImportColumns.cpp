#include "apps/escuela/import/ImportColumns.h"

#include <map>

#include "apps/escuela/PersonName.h"
#include "apps/escuela/import/FoldedText.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

[[noreturn]] void RefuseHeading(const CsvRow& heading, const std::string& reason) {
  throw RuntimeError(ErrorNumber::StatementFailed,
                     "Línea " + std::to_string(heading.line) + ": " + reason);
}

}  // namespace

ImportColumns::ImportColumns(const CsvRow& heading) : count_(heading.cells.size()) {
  static const std::map<std::string, Column, std::less<>> names = {
      {"alumno", kStudent},
      {"id", kStudent},
      {"idalumno", kStudent},
      {"apellidos", kSurnames},
      {"nombre", kName},
      {"seccion", kSection},
      {"grupo", kSection},
      {"materia", kSubject},
      {"curso", kCourse},
      {"curso de la materia", kCourse},
      {"evaluaciones", kEvaluations},
      {"evaluacion", kEvaluations},
      {"profesor", kTeacher},
      {"docente", kTeacher},
  };
  for (std::size_t i = 0; i < heading.cells.size(); ++i) {
    const auto& text = heading.cells[i];
    if (text.empty()) continue;
    const auto found = names.find(FoldedText(text));
    if (found == names.end()) RefuseHeading(heading, "la columna «" + text + "» no se conoce");
    auto& place = places_[found->second];
    if (place >= 0) RefuseHeading(heading, "la columna «" + text + "» está dos veces");
    place = static_cast<int>(i);
  }
  const auto require = [&](Column column, const char* name) {
    if (!Has(column)) RefuseHeading(heading, std::string("falta la columna «") + name + "»");
  };
  if (!Has(kStudent) && !(Has(kSurnames) && Has(kName)))
    RefuseHeading(heading, "falta la columna «alumno», o «apellidos» y «nombre»");
  require(kSection, "sección");
  require(kSubject, "materia");
  require(kCourse, "curso");
  require(kEvaluations, "evaluaciones");
}

std::string ImportColumns::Cell(const CsvRow& row, Column column) const {
  const auto place = places_[column];
  return place < 0 || static_cast<std::size_t>(place) >= row.cells.size()
             ? std::string()
             : row.cells[static_cast<std::size_t>(place)];
}

std::string ImportColumns::Student(const CsvRow& row) const {
  if (auto student = Cell(row, kStudent); !student.empty()) return student;
  return FullName(Cell(row, kSurnames), {}, Cell(row, kName));
}

}  // namespace quorvane
