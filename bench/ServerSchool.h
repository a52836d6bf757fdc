#pragma once

#include <cstdint>
#include <string>

#include "apps/escuela/SchoolAddress.h"
#include "bench/BenchSchool.h"

namespace quorvane::bench {

/// The rows of a school in a file, in a database of their own on a PostgreSQL server, which goes
/// with the object.
class ServerSchool {
 public:
  /// `server` is the ODBC connection string, without a database, of who may make one.
  ServerSchool(const std::string& server, const BenchSchool& school);
  ~ServerSchool();
  ServerSchool(const ServerSchool&) = delete;
  ServerSchool& operator=(const ServerSchool&) = delete;
  ServerSchool(ServerSchool&&) = delete;
  ServerSchool& operator=(ServerSchool&&) = delete;

  [[nodiscard]] SchoolAddress Address() const;
  /// The same through something that listens on a port of this machine.
  [[nodiscard]] SchoolAddress Through(std::uint16_t port) const;
  /// Where the server itself listens.
  [[nodiscard]] std::uint16_t Port() const;

 private:
  void OnServer(const std::string& statement) const;

  std::string server_;
  std::string database_;
};

}  // namespace quorvane::bench
