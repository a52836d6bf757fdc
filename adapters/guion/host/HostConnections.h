#pragma once

namespace quorvane {
class Connection;
}

namespace quorvane::guion {

/// The connections of a host, open, that outlive it.
struct HostConnections {
  Connection& centro;
  Connection& borrado;
  Connection& entrada;
  /// Another user's, for the statements that a script issues itself; it is in no trace.
  Connection& otra;
};

}  // namespace quorvane::guion
