#include "apps/escuela/repair/DoubledRows.h"

#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/repair/UndoLiteral.h"

namespace quorvane {

using sqltext::Engine;

DoubledRows::DoubledRows(Connection& school, std::string_view table, std::string_view columns,
                         std::string_view order)
    : school_(school),
      engine_(EngineReached(school)),
      table_(table),
      columns_(columns),
      order_(order) {
  const auto names = ColumnsOf(school_, table_).value_or(FieldNames());
  for (const auto& name : names) order_ += (order_.empty() ? "" : ", ") + name;
}

std::string DoubledRows::Ranked(const std::string& selection) const {
  return "SELECT " + selection + ", ROW_NUMBER() OVER (PARTITION BY " + columns_ + " ORDER BY " +
         order_ + ") AS LugarDoble FROM " + table_;
}

/// What tells a row from one that is like it.
std::string DoubledRows::RowAddress() const {
  return engine_ == Engine::PostgreSql ? "ctid" : "rowid";
}

bool DoubledRows::Any() const {
  return !school_
              .Execute("SELECT 1 FROM " + table_ + " GROUP BY " + columns_ + " HAVING COUNT(*)>1")
              .Eof();
}

Recordset DoubledRows::Read() const {
  const auto marks = BytesMarks(ColumnsOf(school_, table_).value_or(FieldNames()), engine_);
  return school_.Execute("SELECT * FROM (" + Ranked(table_ + ".*" + marks) +
                         ") Filas WHERE LugarDoble>1 ORDER BY " + order_);
}

void DoubledRows::Remove() const {
  if (engine_ == Engine::SqlServer) {
    school_.Execute("WITH Filas AS (" + Ranked("*") + ") DELETE FROM Filas WHERE LugarDoble>1");
    return;
  }
  school_.Execute("DELETE FROM " + table_ + " WHERE " + RowAddress() + " IN (SELECT Sitio FROM (" +
                  Ranked(RowAddress() + " AS Sitio") + ") Filas WHERE LugarDoble>1)");
}

void DoubledRows::Set(std::string_view column, std::int32_t value,
                      const std::string& condition) const {
  const auto change = std::string(column) + "=" + std::to_string(value);
  const auto which = " WHERE LugarDoble>1 AND " + condition;
  if (engine_ == Engine::SqlServer) {
    school_.Execute("WITH Filas AS (" + Ranked("*") + ") UPDATE TOP (1) Filas SET " + change +
                    which);
    return;
  }
  school_.Execute("UPDATE " + table_ + " SET " + change + " WHERE " + RowAddress() +
                  "=(SELECT Sitio FROM (" + Ranked(table_ + ".*, " + RowAddress() + " AS Sitio") +
                  ") Filas" + which + " LIMIT 1)");
}

}  // namespace quorvane
