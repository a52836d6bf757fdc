#pragma once

#include <string>

#include "adapters/guion/HostOptions.h"

namespace quorvane::guion {

/// The school to play a script on, and the session to play it in.
struct PlayOptions {
  std::string bd;    ///< the school's file
  std::string odbc;  ///< in its place, a connection string
  std::string
      entrada;       ///< where `Usuario` is, as the school is given; the school itself when empty
  HostOptions host;  ///< its `rutaBD` is filled from the above
};

}  // namespace quorvane::guion
