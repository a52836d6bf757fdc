#pragma once

#include <QProcess>
#include <string>

namespace quorvane::test {

/// An X server without a screen to look at, with a window manager or without, for the life of the
/// object. It listens on a socket of this machine alone.
class XServer {
 public:
  /// Throws std::runtime_error when one can't be started.
  explicit XServer(bool managed);
  ~XServer();
  XServer(XServer&&) = delete;

  /// As the environment variable DISPLAY has it.
  [[nodiscard]] const std::string& Display() const noexcept { return display_; }

 private:
  QProcess server_;
  QProcess manager_;
  std::string display_;
};

}  // namespace quorvane::test
