#pragma once

namespace quorvane {

class Connection;

// The door to the school: the session's connections, which are the host's. Whoever asks before
// there is a session gets error 91. A routine that reads takes the `Connection&` that it reads
// from.

Connection& Centro();      ///< `conLocalCentro`, the school's tables
Connection& AppEntrada();  ///< `conLocalAppEntrada`, the application's own, opened by who uses it

}  // namespace quorvane
