#include "platform/data/Connection.h"

#include <utility>

#include "platform/RuntimeError.h"
#include "platform/data/StatementTrace.h"

namespace quorvane {

Connection::Connection(std::string name) : name_(std::move(name)) {}

Recordset Connection::Execute(const std::string& statement) {
  if (!IsOpen()) throw RuntimeError(ErrorNumber::ObjectClosed);
  if (!name_.empty()) StatementTrace::Write(name_, statement);
  if (observer_) observer_(*this, statement);
  return Run(statement);
}

}  // namespace quorvane
