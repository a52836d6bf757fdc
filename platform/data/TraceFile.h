#pragma once

#include <chrono>
#include <string>

namespace quorvane {

/// A file that lines are appended to and that never ends its writer, or keeps him waiting for long:
/// a terminal or a pipe that is full has `kPatience` to take a line, and then it fails, as one
/// whose reader has gone.
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
  /// In one write, so that processes don't mix their lines; a pipe or a terminal that is nearly
  /// full takes a long line in pieces. False when it hasn't been written whole.
  [[nodiscard]] bool Append(const std::string& line);
  /// Whether it couldn't be opened, or written, because nobody reads what comes out of it.
  [[nodiscard]] bool Unread() const noexcept;
  /// On standard error, as far as that can be written, with the same patience.
  static void Tell(const std::string& text);

  static constexpr std::chrono::milliseconds kPatience{2000};

 private:
  int handle_;
  int error_;  ///< the system's number of what failed last
};

}  // namespace quorvane
