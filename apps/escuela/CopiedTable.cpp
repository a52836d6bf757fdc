#include "apps/escuela/CopiedTable.h"

#include <algorithm>

#include "apps/escuela/SchoolAddress.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
CopiedTable::CopiedTable(Connection& school, const SchemaTable& table) : name(table.name) {
  auto names = ColumnsOf(school, table.name).value_or(FieldNames());
  auto unknown = names;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const auto& column = table.columns[i];
    // A column that is only filled by its place may have any name.
    const auto byPlace = table.byPosition && column.mark == SchemaMark::FreeName;
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& candidate) {
      return byPlace ? &candidate == &names[i] : EqualNoCase(candidate, column.name);
    });
    // One that only a host needs may be missing.
    if (found == names.end()) continue;
    columns.push_back(column);
    there.push_back(*found);
    std::erase(unknown, *found);
  }
  left = std::move(unknown);
}

std::size_t CopiedTable::Key() const {
  const auto found = std::find_if(columns.begin(), columns.end(), [](const SchemaColumn& column) {
    return column.kind == SchemaKind::Key;
  });
  return static_cast<std::size_t>(found - columns.begin());
}

std::string CopiedTable::Selection() const {
  std::string text;
  for (const auto& column : there) text += (text.empty() ? "[" : ",[") + column + "]";
  return text;
}

}  // namespace quorvane
