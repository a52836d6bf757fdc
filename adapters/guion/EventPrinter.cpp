#include "adapters/guion/EventPrinter.h"

namespace quorvane::guion {

void EventPrinter::Print(std::string_view word, const std::string& rest) {
  out_ << word;
  if (!rest.empty()) out_ << ' ' << rest;
  out_ << '\n' << std::flush;
}

}  // namespace quorvane::guion
