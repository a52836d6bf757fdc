#pragma once

#include <functional>

namespace quorvane {

/// WritingStopped once a signal has asked the program to end.
void RequireGoing();

/// Does what writes something, which a signal may end where it asks `RequireGoing`. By then it has
/// undone what it had begun; the program ends by that signal. Also where the signal shows as a
/// failure of what it was doing, as that of a pipe which nobody reads any more.
int UnlessStopped(const std::function<int()>& work);

}  // namespace quorvane
