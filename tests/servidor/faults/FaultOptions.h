#pragma once

#include <cstdint>

namespace quorvane::test {

/// What goes wrong between a session and its server.
enum class ServerFault {
  Stop,       ///< the server stops at once, and is started again
  Terminate,  ///< it ends its process for this connection
  Reset,      ///< the network cuts the connection
  Silence,    ///< the network carries nothing any more
};

struct FaultOptions {
  ServerFault fault = ServerFault::Terminate;
  int times = 50;
  int atOnce = 1;  ///< processes that share them, each with a school of its own
  std::uint64_t seed = 1;
};

}  // namespace quorvane::test
