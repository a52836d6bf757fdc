#include "apps/escuela/TableKinds.h"

#include "apps/escuela/TableObjects.h"

namespace quorvane {

std::vector<std::string> ViewsAmongTables(Connection& database) {
  std::vector<std::string> findings;
  for (const auto& view : TableObjects(database, TableObjectKind::View))
    findings.push_back("La tabla " + view.table + " no es una tabla, sino una vista");
  return findings;
}

std::vector<std::string> GeneratedColumns(Connection& database) {
  std::vector<std::string> findings;
  for (const auto& column : TableObjects(database, TableObjectKind::GeneratedColumn))
    // What is inserted by position takes every column.
    if (column.written)
      findings.push_back("La columna " + column.name + " de la tabla " + column.table +
                         " es calculada, y no se puede escribir en ella");
  return findings;
}

}  // namespace quorvane
