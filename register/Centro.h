#pragma once

namespace quorvane {

class Connection;

/// The session's connection to the school, the host's. Error 91 before there is a session.
Connection& Centro();

}  // namespace quorvane
