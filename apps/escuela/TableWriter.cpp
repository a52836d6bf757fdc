#include "apps/escuela/TableWriter.h"

#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

// SQL Server takes 1000 at most; a longer statement gains nothing elsewhere.
constexpr std::size_t kMostRows = 500;
constexpr std::size_t kLongStatement = std::size_t{128} * 1024;

}  // namespace

TableWriter::TableWriter(Connection& school, sqltext::Engine engine, const CopiedTable& table)
    : school_(school), row_(table, engine), table_(table.name) {
  std::string columns;
  for (const auto& column : table.columns) columns += (columns.empty() ? "" : ",") + column.name;
  beginning_ = "INSERT INTO " + table.name + " (" + columns + ") VALUES ";
}

void TableWriter::Add(const Recordset& rows) {
  const auto& text = row_.Of(rows);
  if (rows_ > 0 && statement_.size() + text.size() > kLongStatement) Flush();
  if (rows_ == 0) {
    statement_ = beginning_;
    first_ = row_.Name(rows);
  } else {
    statement_ += ',';
  }
  statement_ += text;
  last_ = row_.Name(rows);
  if (++rows_ == kMostRows) Flush();
}

void TableWriter::Flush() {
  if (rows_ == 0) return;
  rows_ = 0;
  try {
    school_.Execute(statement_);
  } catch (const RuntimeError& error) {
    throw RuntimeError(ErrorNumber::StatementFailed, "Al escribir en la tabla " + table_ +
                                                         " las filas de " + first_ + " a " + last_ +
                                                         ": " + error.Description());
  }
}

}  // namespace quorvane
