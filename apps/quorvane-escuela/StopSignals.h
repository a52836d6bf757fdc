#pragma once

namespace quorvane {

/// SIGINT, SIGTERM, SIGHUP and SIGPIPE as a task that writes has them: remembered, so that it can
/// undo what it has begun.
class StopSignals {
 public:
  /// From here on to the program's end they don't end it: also not when all is done and told, or
  /// who sees it killed would believe that nothing was. A second one ends it at once, with no more
  /// undone than a file that was being written. A signal that the program was started without stays
  /// so.
  static void Catch();

  [[nodiscard]] static bool Came() noexcept;
  /// Ends the program by the signal that came, as whoever sent it expects.
  [[noreturn]] static void End();
};

}  // namespace quorvane
