#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quorvane::bench {

/// Wall time in seconds of the same statements, through the module and through `PQexec`.
struct Pair {
  double module = 0;
  double plain = 0;
  double desktop = 0;  ///< through the module where the program paints meanwhile; 0 for not taken
};

/// One thing that a user does on a school on a server.
struct ServerRow {
  std::string what;
  bool opening = false;  ///< must not grow with the school
  bool limited = true;   ///< the module's time is held to a limit
  std::size_t statements = 0;
  std::size_t trips = 0;        ///< round trips that a proxy has counted
  std::vector<Pair> schools{};  ///< in the order of the sizes
  std::vector<Pair> far{};      ///< in the order of the delays, on the first school
};

/// How long a round trip to the server is made to take besides, in milliseconds.
const std::vector<int>& Delays();

/// Opens and saves the nine screens on schools of these sizes, all on one server, which `server`
/// reaches: the ODBC connection string of who may make databases, without one. The files that the
/// schools are copied from are made in `folder`.
std::vector<ServerRow> MeasureServer(const std::string& server, const std::string& folder,
                                     const std::vector<int>& sizes);

}  // namespace quorvane::bench
