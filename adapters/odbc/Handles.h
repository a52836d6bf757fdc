#pragma once

#include <sql.h>
#include <utility>

namespace quorvane::odbc {

/// One of the driver manager's handles, given back with the object. `Kind` is SQL_HANDLE_ENV,
/// SQL_HANDLE_DBC or SQL_HANDLE_STMT.
template <SQLSMALLINT Kind>
class Handle {
 public:
  /// Under that parent. It may not be had: `Get` is null then, and the parent tells why.
  explicit Handle(SQLHANDLE parent) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(Kind, parent, &handle_))) handle_ = nullptr;
  }
  ~Handle() {
    if (handle_ != nullptr) SQLFreeHandle(Kind, handle_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&&) = delete;

  [[nodiscard]] SQLHANDLE Get() const noexcept { return handle_; }

 private:
  SQLHANDLE handle_ = nullptr;
};

using EnvironmentHandle = Handle<SQL_HANDLE_ENV>;
using ConnectionHandle = Handle<SQL_HANDLE_DBC>;
using StatementHandle = Handle<SQL_HANDLE_STMT>;

}  // namespace quorvane::odbc
