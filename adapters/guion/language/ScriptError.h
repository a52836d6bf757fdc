#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace quorvane::guion {

/// A script that can't be read: the line, counted from 1, and why, in Spanish.
class ScriptError : public std::runtime_error {
 public:
  ScriptError(std::size_t line, const std::string& reason)
      : std::runtime_error(reason), line_(line) {}

  [[nodiscard]] std::size_t Line() const noexcept { return line_; }

 private:
  std::size_t line_;
};

}  // namespace quorvane::guion
