#pragma once

#include <exception>
#include <utility>

#include "adapters/odbc/Diagnostics.h"

namespace quorvane::odbc {

/// A call that the driver refused. It never leaves the connection, which knows what to make of it.
class DriverFailure : public std::exception {
 public:
  explicit DriverFailure(Diagnostics diagnostics) : diagnostics_(std::move(diagnostics)) {}

  [[nodiscard]] const Diagnostics& What() const noexcept { return diagnostics_; }

 private:
  Diagnostics diagnostics_;
};

}  // namespace quorvane::odbc
