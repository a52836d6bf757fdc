#pragma once

#include <cstdint>
#include <ostream>

namespace quorvane::test {

/// What has come of the faults, in plain numbers: it goes through pipes.
struct FaultFigures {
  std::int64_t faults = 0;
  std::int64_t unseen = 0;          ///< more that met a connection at rest, which was made anew
  std::int64_t returned = 0;        ///< statements
  std::int64_t written = 0;         ///< of them those that write
  std::int64_t inFlight = 0;        ///< writes that the fault met
  std::int64_t inside = 0;          ///< of them those that are in the school afterwards
  std::int64_t outside = 0;         ///< and those that aren't
  std::int64_t publications = 0;    ///< named and removed
  std::int64_t locks = 0;           ///< under them
  std::int64_t reopened = 0;        ///< screens opened again
  std::int64_t longestError = 0;    ///< milliseconds from a statement to its error
  std::int64_t shortestError = 0;   ///< the same
  std::int64_t longestOpening = 0;  ///< milliseconds to open a screen again

  void Add(const FaultFigures& other);
  void Print(std::ostream& out, const char* what) const;
};

}  // namespace quorvane::test
