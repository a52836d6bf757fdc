#pragma once

namespace quorvane::zendria {

/// Puts this host's components in the place of those that do nothing.
void RegisterHostComponents();

}  // namespace quorvane::zendria
