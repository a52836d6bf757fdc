#pragma once

namespace quorvane {

/// While one lives, SIGINT, SIGTERM, SIGHUP and SIGPIPE don't end the program but are remembered,
/// so that a long task can undo what it has begun; a second one ends it at once, with no more
/// undone than a file that was being written. A signal that the program was started without stays
/// so.
class StopSignals {
 public:
  StopSignals();
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;
  StopSignals(StopSignals&&) = delete;
  StopSignals& operator=(StopSignals&&) = delete;

  [[nodiscard]] static bool Came() noexcept;
  /// Ends the program by the signal that came, as whoever sent it expects.
  [[noreturn]] static void End();
};

}  // namespace quorvane
