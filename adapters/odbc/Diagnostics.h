#pragma once

#include <sql.h>
#include <string>
#include <vector>

#include "adapters/odbc/DriverCalls.h"
#include "platform/RuntimeError.h"

namespace quorvane::odbc {

/// What the driver has to say of the last call on a handle, which failed.
class Diagnostics {
 public:
  Diagnostics(const DriverCalls& calls, SQLSMALLINT kind, SQLHANDLE handle);

  /// Error 0x80004005 with state, text and native number of each record: "[42S02] Invalid object
  /// name 'Alumno'. (208)". `before` and `behind` stand round it.
  [[nodiscard]] RuntimeError Error(const std::string& before = {},
                                   const std::string& behind = {}) const;

  /// Whether a record has a state that begins so: "08" tells of the connection.
  [[nodiscard]] bool HasState(const std::string& beginning) const;
  [[nodiscard]] bool HasNative(SQLINTEGER number) const;
  /// Whether a server says it, rather than that none could be asked.
  [[nodiscard]] bool ComeFromServer() const;

 private:
  struct Record {
    std::string state;
    std::string text;
    SQLINTEGER native = 0;
  };

  std::vector<Record> records_;
};

}  // namespace quorvane::odbc
