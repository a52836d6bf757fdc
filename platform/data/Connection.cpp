#include "platform/data/Connection.h"

#include <utility>

#include "platform/RuntimeError.h"
#include "platform/data/StatementTrace.h"

namespace quorvane {

Connection::Connection(std::string name) : name_(std::move(name)) {}

void Connection::RequireWhole(std::string_view statements) {
  // Engines and drivers take it for the text's end, which may lie before the WHERE of a DELETE.
  if (statements.find('\0') != std::string_view::npos)
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "La instrucción lleva un carácter nulo (NUL), y no se ejecuta cortada por "
                       "él: quítelo");
}

Recordset Connection::Execute(const std::string& statement) {
  if (!IsOpen()) throw RuntimeError(ErrorNumber::ObjectClosed);
  RequireWhole(statement);
  if (!name_.empty()) StatementTrace::Write(name_, statement);
  if (observer_) observer_(*this, statement);
  return Run(statement);
}

}  // namespace quorvane
