#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace quorvane::guion {

/// What the host puts into the session, and the day that it answers.
struct HostOptions {
  std::int32_t usuario = 1;
  std::int32_t perfil = 0;
  std::int32_t centro = 1;
  std::int32_t activa = 1;  ///< 0 or 1
  bool sqlServer = false;
  std::string hoy;  ///< dd/mm/yyyy; empty for a host that can't tell
  /// Answers in the place of `hoy`, until a script tells that: a server's date.
  std::function<std::string()> hoyDelServidor;
  std::string rutaBD;
};

}  // namespace quorvane::guion
