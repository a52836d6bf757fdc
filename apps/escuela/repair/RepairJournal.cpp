#include "apps/escuela/repair/RepairJournal.h"

#include "apps/escuela/QuotedText.h"

namespace quorvane {

void RepairJournal::Removed(std::string_view table, const Recordset& rows, std::size_t columns,
                            const std::string& reason) {
  std::string names;
  std::string values;
  for (std::size_t i = 0; i < columns; ++i) {
    if (i > 0) {
      names += ',';
      values += ',';
    }
    names += rows.Names()[i];
    const auto& value = rows.Fields(i);
    if (value.IsNull())
      values += "NULL";
    else if (value.IsText())
      AppendQuoted(values, value.Text(), engine_);
    else
      values += value.Text();
  }
  std::string statement = "INSERT INTO ";
  statement.append(table).append(" (").append(names).append(") VALUES (").append(values);
  undo_.push_back(statement + "); -- " + reason);
  ++removed_;
}

void RepairJournal::Changed(const std::string& undo, const std::string& reason) {
  undo_.push_back(undo + "; -- " + reason);
  ++changed_;
}

}  // namespace quorvane
