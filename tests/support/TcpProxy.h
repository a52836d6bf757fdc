#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <memory>
#include <mutex>
#include <optional>
#include <poll.h>
#include <string>
#include <thread>
#include <vector>

namespace quorvane::test {

class ProxiedLink;

/// The network between a program and its server on this machine: listens on a port of its own,
/// carries what comes to the server's and back, and can fail as a network does. Works in a thread
/// of its own; its methods are for any thread. All connections end with it.
class TcpProxy {
 public:
  enum class Fault {
    Reset,    ///< all connections that there are end at once; later ones pass
    Silence,  ///< nothing is carried any more, in old connections and new, until `Resume`
  };
  enum class Moment {
    Now,
    NextRequest,  ///< before the server hears of what a client says next
    NextAnswer,   ///< once the server has done it, before the client hears of that
  };

  /// Before a server at that port of 127.0.0.1. `delay` is what each way takes.
  explicit TcpProxy(std::uint16_t serverPort, std::chrono::microseconds delay = {});
  /// Before it, at the same port of the next address, 127.0.0.2. It reaches the server by the
  /// socket that stands there as a file: to that port the program has no connection but its
  /// driver's.
  static TcpProxy Beside(std::uint16_t serverPort, const std::string& serverFile) {
    return {serverPort, serverFile, {}, 1, serverPort};
  }
  ~TcpProxy();
  TcpProxy(TcpProxy&&) = delete;

  [[nodiscard]] std::uint16_t Port() const noexcept { return port_; }

  /// What is to go wrong, and when: `passed` more bursts pass before the moment is looked for. Of a
  /// fault of `Now` all is done when this returns.
  void Fail(Fault fault, Moment moment = Moment::Now, std::size_t passed = 0);
  /// Ends a silence, and forgets a fault whose moment hasn't come. What was held back goes on.
  void Resume();
  /// Whether the fault that was asked for last has come to be.
  [[nodiscard]] bool HasFailed() const;

  /// How often a client has spoken after the server, or as the first, of all connections: the round
  /// trips. The opening of a connection has its own, its end has none.
  [[nodiscard]] std::size_t Bursts() const noexcept { return bursts_; }
  /// How many connections have been opened.
  [[nodiscard]] std::size_t Connections() const noexcept { return connections_; }

 private:
  using Clock = std::chrono::steady_clock;

  TcpProxy(std::uint16_t serverPort, std::string serverFile, std::chrono::microseconds delay,
           std::uint32_t next, std::uint16_t port);

  /// A connection with the server; -1 where it takes none.
  [[nodiscard]] int ReachServer() const;

  void Wake() const;
  void Work();
  /// How long to wait for something to come; none for ever.
  [[nodiscard]] std::optional<timespec> Rest() const;
  /// What to wait for: the bell, the listener, and both ends of each link. In a silence the bell.
  [[nodiscard]] std::vector<pollfd> Ends() const;
  void Accept();
  void Hear(ProxiedLink& link, bool fromClient);
  void Strike();

  const std::uint16_t serverPort_;
  const std::string serverFile_;  ///< instead of the port, unless empty
  const std::chrono::microseconds delay_;
  int listener_ = -1;
  int bell_ = -1;  ///< rouses the thread from its waiting
  std::uint16_t port_ = 0;
  std::atomic<std::size_t> bursts_ = 0;
  std::atomic<std::size_t> connections_ = 0;

  mutable std::mutex mutex_;  ///< of all below but the thread
  std::condition_variable struck_;
  bool ending_ = false;
  bool silent_ = false;
  bool armed_ = false;
  bool failed_ = false;
  Fault fault_ = Fault::Reset;
  Moment moment_ = Moment::Now;
  std::size_t due_ = 0;  ///< the first of the bursts whose moment it may be
  std::vector<std::unique_ptr<ProxiedLink>> links_;
  std::thread thread_;
};

}  // namespace quorvane::test
