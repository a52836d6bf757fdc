#include "apps/zendria/StoredGrades.h"

#include <exception>
#include <string>

namespace quorvane::zendria {

StoredGrades::StoredGrades(const std::function<std::unique_ptr<Connection>()>& open) {
  try {
    connection_ = open();
  } catch (const std::exception&) {
    connection_.reset();
  }
}

std::optional<bool> StoredGrades::Holds(const GradeSheet& sheet, const GradeCell& cell) {
  if (cell.field.empty()) return false;
  if (connection_ == nullptr) return std::nullopt;
  try {
    const auto row =
        connection_->Execute("SELECT " + cell.field + " FROM " + sheet.table +
                             " WHERE CodNumEvaluacion=" + std::to_string(sheet.evaluacion) +
                             " AND CodAlumnoPte_MatDet=" + std::to_string(cell.pending));
    return !row.Eof() && row.Fields(cell.field).Long() == cell.data;
  } catch (const std::exception&) {
    connection_.reset();
    return std::nullopt;
  }
}

}  // namespace quorvane::zendria
