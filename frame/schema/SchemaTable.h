#pragma once

#include <string>
#include <vector>

namespace quorvane {

enum class SchemaKind {
  Key,    ///< the primary key of its table, a whole number of 32 bits
  Long,   ///< a whole number of 32 bits
  Short,  ///< one of 16 bits
  Byte,   ///< one of 8 bits, from 0 up
  Flag,   ///< True or False
  Text,
  Date,  ///< a text yyyy/mm/dd
};

/// How free a school's own spelling of a column is.
enum class SchemaMark {
  None,
  FreeName,   ///< filled by position alone: another name does as well
  FreePlace,  ///< of a table filled by position, but this one found by its name
  Host,       ///< only a host needs it
};

struct SchemaColumn {
  std::string name;
  SchemaKind kind = SchemaKind::Long;
  SchemaMark mark = SchemaMark::None;
};

struct SchemaTable {
  std::string name;
  std::vector<std::string> comment;  ///< its lines, with their dashes
  std::vector<SchemaColumn> columns;
  std::vector<std::vector<std::string>> indexes;  ///< the names of each one's columns
  bool byPosition = false;  ///< the module inserts without naming columns: their order counts
};

}  // namespace quorvane
