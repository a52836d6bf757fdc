// What the system is really told of a connection: from a string to its socket there are a driver
// manager, a driver and its library.

#include <cstdint>
#include <filesystem>
#include <map>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <string>
#include <sys/socket.h>
#include <utility>
#include <vector>

#include "adapters/odbc/OdbcConnection.h"
#include "tests/servidor/Proxied.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/TcpProxy.h"

namespace quorvane::test {
namespace {

using odbc::OdbcConnection;
using ::testing::Pair;

using Options = std::map<std::string, int>;

/// What the sockets that lead to that port of this machine have.
std::vector<Options> SocketsTo(std::uint16_t port) {
  const std::vector<std::pair<std::string, std::pair<int, int>>> asked = {
      {"count", {IPPROTO_TCP, TCP_KEEPCNT}},
      {"idle", {IPPROTO_TCP, TCP_KEEPIDLE}},
      {"interval", {IPPROTO_TCP, TCP_KEEPINTVL}},
      {"keepalive", {SOL_SOCKET, SO_KEEPALIVE}},
      {"unanswered", {IPPROTO_TCP, TCP_USER_TIMEOUT}}};
  std::vector<Options> all;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    const auto descriptor = std::stoi(entry.path().filename().string());
    sockaddr_in peer{};
    socklen_t size = sizeof peer;
    if (getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) != 0 ||
        peer.sin_family != AF_INET || ntohs(peer.sin_port) != port)
      continue;
    Options options;
    for (const auto& [name, option] : asked) {
      socklen_t length = sizeof(int);
      EXPECT_EQ(getsockopt(descriptor, option.first, option.second, &options[name], &length), 0);
    }
    all.push_back(options);
  }
  return all;
}

class KeepaliveTest : public ProxiedTest {
 protected:
  /// Of a connection whose string has that too.
  std::vector<Options> With(const std::string& more) const {
    // Its port is no other connection's.
    const TcpProxy proxy(ServerPort());
    const Opened<OdbcConnection> connection(Through(proxy) + more, "");
    return SocketsTo(proxy.Port());
  }
};

TEST_F(KeepaliveTest, TheSystemGivesUpALostServerWithinTheTermsOfTheString) {
  EXPECT_THAT(With(""),
              ElementsAre(ElementsAre(Pair("count", 3), Pair("idle", 30), Pair("interval", 10),
                                      Pair("keepalive", 1), Pair("unanswered", 20000))));
}

TEST_F(KeepaliveTest, WhatTheStringSaysReachesTheSystem) {
  EXPECT_THAT(With(";KeepaliveTime=45;KeepaliveInterval=7;pqopt={tcp_user_timeout=12000}"),
              ElementsAre(ElementsAre(Pair("count", 3), Pair("idle", 45), Pair("interval", 7),
                                      Pair("keepalive", 1), Pair("unanswered", 12000))));
}

}  // namespace
}  // namespace quorvane::test
