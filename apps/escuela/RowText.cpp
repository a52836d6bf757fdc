#include "apps/escuela/RowText.h"

#include "apps/escuela/CellLiteral.h"
#include "platform/RuntimeError.h"

namespace quorvane {

const std::string& RowText::Of(const Recordset& rows) {
  ++sum_.rows;
  text_ = "(";
  for (std::size_t i = 0; i < table_.columns.size(); ++i) {
    if (i > 0) text_ += ',';
    try {
      AppendLiteral(text_, rows.Fields(i), table_.columns[i].kind, engine_);
    } catch (const RuntimeError& error) {
      throw RuntimeError(ErrorNumber::StatementFailed,
                         "En la tabla " + table_.name + ", la fila " + Name(rows) + " tiene en " +
                             table_.columns[i].name + " " + error.Description());
    }
  }
  text_ += ')';
  sum_.content += std::hash<std::string>()(text_);
  return text_;
}

std::string RowText::Name(const Recordset& rows) const {
  const auto key = table_.Key();
  if (key == table_.columns.size() || rows.Fields(key).IsNull()) return std::to_string(sum_.rows);
  return table_.columns[key].name + "=" + rows.Fields(key).Text();
}

}  // namespace quorvane
