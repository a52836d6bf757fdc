#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "frame/schema/SchemaTable.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// A table of a school as a copy takes it from where it stands: the columns of the schema that it
/// has there, and what they are called there.
struct CopiedTable {
  /// Asks an open school, which is fit for the module, for the table's columns.
  CopiedTable(Connection& school, const SchemaTable& table);

  std::string name;
  std::vector<SchemaColumn> columns;  ///< those that are copied, by the names of the schema
  std::vector<std::string> there;     ///< how the school spells them
  std::vector<std::string> left;      ///< columns of the school's that the schema doesn't know

  /// The place of the primary key among `columns`; behind the last when there is none.
  [[nodiscard]] std::size_t Key() const;
  /// The columns for a SELECT, as the school spells them: "[IDAlumno],[Nombre]".
  [[nodiscard]] std::string Selection() const;
};

}  // namespace quorvane
