#include "bench/ServerSchool.h"

#include <atomic>
#include <unistd.h>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/OdbcConnection.h"
#include "apps/escuela/CopySchool.h"
#include "platform/RuntimeError.h"
#include "platform/text/PlainNumber.h"

namespace quorvane::bench {
namespace {

std::string NewName() {
  static std::atomic<int> made = 0;
  return "medida_" + std::to_string(getpid()) + "_" + std::to_string(++made);
}

}  // namespace

ServerSchool::ServerSchool(const std::string& server, const BenchSchool& school)
    : server_(server), database_(NewName()) {
  OnServer("CREATE DATABASE " + database_);
  const CopyWatch nobody{[](std::size_t, std::size_t) {}, [] { return false; }};
  CopySchool(SchoolAddress::File(school.Path()), Address(), nobody);
  // What the server does by itself within minutes of rows that are new.
  Address().Open("")->Execute("VACUUM ANALYZE");
}

ServerSchool::~ServerSchool() {
  try {
    OnServer("DROP DATABASE " + database_);
  } catch (const RuntimeError&) {
    // It goes with the server.
    return;
  }
}

void ServerSchool::OnServer(const std::string& statement) const {
  SchoolAddress::Odbc(server_ + ";Database=postgres").Open("")->Execute(statement);
}

SchoolAddress ServerSchool::Address() const {
  return SchoolAddress::Odbc(server_ + ";Database=" + database_);
}

SchoolAddress ServerSchool::Through(std::uint16_t port) const {
  odbc::ConnectionString string(Address().Text());
  string.Set("Port", std::to_string(port));
  return SchoolAddress::Odbc(string.Text());
}

std::uint16_t ServerSchool::Port() const {
  return PlainNumber<std::uint16_t>(odbc::ConnectionString(server_).Value("Port")).value();
}

}  // namespace quorvane::bench
