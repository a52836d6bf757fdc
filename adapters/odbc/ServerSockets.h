#pragma once

#include <optional>
#include <set>
#include <string>
#include <sys/types.h>
#include <vector>

namespace quorvane::odbc {

/// The sockets by which a driver reaches its server. It keeps them to itself, so they are told by
/// what the process has open before it connects and afterwards. For any thread.
class ServerSockets {
 public:
  /// Who is at the other end.
  struct Peer {
    std::string address;  ///< in figures
    int port = 0;
  };

  /// To be made before the driver connects, to that port; any, where the text is no number.
  explicit ServerSockets(const std::string& port);

  /// The driver has connected: those that have come until now are meant, and none that comes later.
  /// False when none has.
  bool Settle();

  /// Ends them, so that a driver that waits for an answer is told that none will come.
  void ShutDown() const;
  /// The server that they reach, of all that could have been meant; none while they reach none.
  [[nodiscard]] std::optional<Peer> Reached() const;
  /// Whether the server has ended one of them. False where the driver needs none.
  [[nodiscard]] bool HungUp() const;

 private:
  /// Those meant that are still there.
  [[nodiscard]] std::vector<int> Descriptors() const;

  int port_ = 0;  ///< 0 for any
  std::set<ino_t> before_;
  std::set<ino_t> own_;
  bool settled_ = false;
};

}  // namespace quorvane::odbc
