#pragma once

#include <functional>

namespace quorvane::odbc {

/// What is to be done over and over, in the thread that waits, while a driver's call takes longer
/// than a moment: a program with windows paints them. It executes nothing and throws nothing, and
/// tells whether the user wants to leave: a server that is silent is then given up within seconds.
/// Of the whole process; set while no connection is in use, and nothing to begin with.
void WhileWaiting(std::function<bool()> meanwhile);

/// Does the work, beside this thread where there is something to be done meanwhile. What it throws
/// comes out of this.
void Wait(const std::function<void()>& work);

}  // namespace quorvane::odbc
