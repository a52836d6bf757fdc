#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// The terminal of the process, whatever its standard streams are.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;
  Terminal(Terminal&&) = delete;
  Terminal& operator=(Terminal&&) = delete;

  /// Whether the process has one. The others ask for it.
  [[nodiscard]] bool IsThere() const noexcept { return handle_ >= 0; }
  void Write(std::string_view text) const;
  /// Asks, and gives a line that isn't shown while it is typed, without its end; what lies beyond
  /// 900 bytes is lost. Ctrl+C ends the program, once the terminal shows again what is typed.
  [[nodiscard]] std::string ReadHidden(std::string_view question) const;

 private:
  bool Read(char& letter) const;

  int handle_;
};

}  // namespace quorvane
