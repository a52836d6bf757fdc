#pragma once

#include <string>

#include "adapters/guion/host/HostOptions.h"

namespace quorvane::guion {

/// The school to play a script on, and the session to play it in.
struct PlayOptions {
  std::string bd;    ///< the school's file
  std::string odbc;  ///< in its place, a connection string
  /// Where `Usuario` is; the school itself when empty. A file; beside `odbc`, what holds an equals
  /// sign is a connection string.
  std::string entrada;
  HostOptions
      host;  ///< its `rutaBD` is filled from the above; `sqlServer` too where a driver tells
};

}  // namespace quorvane::guion
