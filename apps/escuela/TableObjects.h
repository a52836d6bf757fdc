#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace quorvane {

/// What an engine's catalogue tells of tables. SQL Server is asked for views alone: the rest it
/// shows only to who has rights on the tables beyond those that the work needs.
enum class TableObjectKind {
  View,             ///< it is none, but a view or something else by its name
  GeneratedColumn,  ///< a column that takes no value from outside
  Trigger,
  Index,          ///< that may refuse a row: a unique one, or one of expressions
  Condition,      ///< on the values of a row
  NotNull,        ///< on those of single columns
  Reference,      ///< a foreign key, of the table or to it
  RewritingRule,  ///< what a server does instead of a statement
  RowPolicy,      ///< what a server hides of its rows
};

struct TableObject {
  std::string table;     ///< as the schema, or the program whose own it is, writes it
  bool written = false;  ///< the module, or a program, adds rows to it
  std::string key;       ///< its one column that stands for a row; empty without
  std::string name;      ///< the object's; empty of a view
  /// Of a trigger in a file its text. Of indexes and NOT NULLs their columns, an empty text for an
  /// expression or a condition beside them. Else empty.
  std::vector<std::string> details;
};

/// Those of a kind on the tables that a school must have, and on those that the programs keep
/// beside them. Reads what the engine knows of the tables, and none of them.
std::vector<TableObject> TableObjects(Connection& database, TableObjectKind kind);

}  // namespace quorvane
