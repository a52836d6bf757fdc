#pragma once

#include <istream>
#include <ostream>

#include "apps/quorvane-guion/PlayOptions.h"

namespace quorvane::guion {

/// Plays a script against the module on a school. Events go to `out`, a line each; what keeps the
/// script from being played at all to `errors`, in Spanish. The exit status: 0, 1 after a runtime
/// error of the module's, 2 when nothing was played.
///
/// A script at hand is checked whole before its first command is played. One that is still being
/// `written`, as on standard input, is played as it comes: a mistake in it ends it there, with
/// status 2 and its forms left open as a killed program would.
int PlayScript(const PlayOptions& options, std::istream& script, std::ostream& out,
               std::ostream& errors, bool written = false);

}  // namespace quorvane::guion
