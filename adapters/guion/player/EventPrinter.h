#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace quorvane::guion {

/// Prints what happens, a line an event, each as soon as it happens. The stream outlives it.
class EventPrinter {
 public:
  explicit EventPrinter(std::ostream& out) : out_(out) {}

  /// "WORD REST", or the word alone.
  void Print(std::string_view word, const std::string& rest = {});

 private:
  std::ostream& out_;
};

}  // namespace quorvane::guion
