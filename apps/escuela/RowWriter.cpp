#include "apps/escuela/RowWriter.h"

namespace quorvane {

void Cell::AppendTo(std::string& statement) const {
  if (!isText_) {
    statement += std::to_string(number_);
    return;
  }
  statement += '\'';
  for (const auto c : text_) {
    if (c == '\'') statement += c;
    statement += c;
  }
  statement += '\'';
}

void RowWriter::Insert(std::string_view table, std::initializer_list<Cell> cells) {
  statement_ = "INSERT INTO ";
  statement_ += table;
  statement_ += " VALUES (";
  auto first = true;
  for (const auto& cell : cells) {
    if (!first) statement_ += ',';
    first = false;
    cell.AppendTo(statement_);
  }
  statement_ += ')';
  connection_.Execute(statement_);
}

}  // namespace quorvane
