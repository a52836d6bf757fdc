#pragma once

#include <string>

#include "apps/escuela/Prng.h"
#include "platform/data/Connection.h"

namespace quorvane::test {

/// What a host has of a school.
struct HostConnections {
  Connection& centro;
  Connection& borrado;
  Connection& entrada;
  bool sqlServer = false;  ///< the flags are those of SQL Server
};

struct HostSession {
  int user = 1;
  int profile = 0;
  int centre = 1;
  bool active = true;
};

/// The host of the module on the walk: a session of any kind, and components that answer anything
/// that they may. Its components are in use as long as it lives.
class RandomHost {
 public:
  explicit RandomHost(Prng& random);
  ~RandomHost();
  RandomHost(RandomHost&&) = delete;

  /// Hands in a session of that user, with a profile and a centre drawn by lot. What it tells is
  /// for the history.
  std::string SignIn(const HostConnections& school, int user);
  /// Hands in that session, and tells it.
  static std::string SignIn(const HostConnections& school, const HostSession& asked);

 private:
  Prng& random_;
};

}  // namespace quorvane::test
