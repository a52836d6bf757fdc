#pragma once

#include <istream>
#include <ostream>

#include "apps/quorvane-guion/PlayOptions.h"

namespace quorvane::guion {

/// Plays a script against the module on a school. Events go to `out`, a line each; what keeps the
/// script from being played at all to `errors`, in Spanish. The exit status: 0, 1 after a runtime
/// error of the module's, 2 when nothing was played.
int PlayScript(const PlayOptions& options, std::istream& script, std::ostream& out,
               std::ostream& errors);

}  // namespace quorvane::guion
