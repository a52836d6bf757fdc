#pragma once

#include <string>

namespace quorvane {

/// A file that lines are appended to and that never keeps its writer waiting or ends it: where it
/// can't be written at once, as a pipe whose reader has gone or doesn't read, it fails.
class TraceFile {
 public:
  /// Made for its owner alone where it isn't there.
  explicit TraceFile(const char* path);
  ~TraceFile();
  TraceFile(const TraceFile&) = delete;
  TraceFile& operator=(const TraceFile&) = delete;
  TraceFile(TraceFile&&) = delete;
  TraceFile& operator=(TraceFile&&) = delete;

  [[nodiscard]] bool IsOpen() const noexcept;
  /// In one write, so that processes don't mix their lines. False when it hasn't been written
  /// whole.
  [[nodiscard]] bool Append(const std::string& line) const;
  /// On standard error, as far as that can be written.
  static void Tell(const std::string& text);

 private:
  int handle_;
};

}  // namespace quorvane
