#pragma once

#include <string>

namespace quorvane {

/// The trace of statements that the environment asks for with QUORVANE_TRAZA=FILE.
class StatementTrace {
 public:
  /// Appends "sql CONNECTION STATEMENT" as one line, in a file whole even when several processes
  /// write; no effect without that variable. A file that can't be written, or no longer, or a pipe
  /// or a terminal whose reader has gone, or takes more than two seconds for a line, is told once,
  /// on standard error, and ends the trace: it stops nobody's work.
  static void Write(const std::string& connection, const std::string& statement);

  /// While one lives nothing is traced: for what a host's component asks of the module's
  /// connections on its own account.
  class Silence {
   public:
    Silence() noexcept;
    ~Silence();
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    Silence(Silence&&) = delete;
    Silence& operator=(Silence&&) = delete;
  };
};

}  // namespace quorvane
