#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "adapters/odbc/ConnectionString.h"
#include "platform/text/PlainNumber.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/TcpProxy.h"

namespace quorvane::test {

/// Where the server of the tests listens.
inline std::uint16_t ServerPort() {
  const odbc::ConnectionString given(ServerString(""));
  return PlainNumber<std::uint16_t>(given.Value("Port")).value();
}

/// The same string, by way of the proxy.
inline std::string StringThrough(const TcpProxy& proxy, const std::string& text) {
  odbc::ConnectionString given(text);
  given.Set("Port", std::to_string(proxy.Port()));
  return given.Text();
}

/// A test on a school of the server's, which others reach by way of a proxy.
class ProxiedTest : public testing::Test {
 protected:
  ~ProxiedTest() override { GiveBackServerSchool(database_); }

  [[nodiscard]] std::string Through(const TcpProxy& proxy) const {
    return StringThrough(proxy, ServerString(database_));
  }

  const std::string database_ = TakeServerSchool();
};

}  // namespace quorvane::test
