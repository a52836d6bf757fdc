#include "apps/escuela/StandbyConnection.h"

#include <utility>

namespace quorvane {

StandbyConnection::StandbyConnection(std::unique_ptr<Connection> actual, std::string name)
    : Connection(std::move(name)), actual_(std::move(actual)) {}

void StandbyConnection::Open() {
  if (actual_->IsOpen()) actual_->Open();
}

Recordset StandbyConnection::Run(const std::string& statement) {
  actual_->Open();
  return actual_->Execute(statement);
}

}  // namespace quorvane
