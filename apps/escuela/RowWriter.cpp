#include "apps/escuela/RowWriter.h"

#include "apps/escuela/QuotedText.h"
#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

void Cell::AppendTo(std::string& statement, sqltext::Engine engine) const {
  if (isText_)
    AppendQuoted(statement, text_, engine);
  else
    statement += std::to_string(number_);
}

RowWriter::RowWriter(Connection& connection)
    : connection_(connection), engine_(EngineReached(connection)) {}

void RowWriter::Insert(std::string_view table, std::initializer_list<Cell> cells) {
  statement_ = "INSERT INTO ";
  statement_ += table;
  statement_ += " VALUES (";
  auto first = true;
  for (const auto& cell : cells) {
    if (!first) statement_ += ',';
    first = false;
    cell.AppendTo(statement_, engine_);
  }
  statement_ += ')';
  connection_.Execute(statement_);
}

}  // namespace quorvane
