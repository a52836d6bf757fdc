#include "adapters/guion/player/EventPrinter.h"

#include <algorithm>

#include "platform/text/VisibleText.h"

namespace quorvane::guion {

void EventPrinter::Print(std::string_view word, const std::string& rest) {
  // An event is a line, also when an engine tells its error in several.
  auto line = rest;
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  out_ << word;
  // What a script says is told as it was read.
  const auto command = word == kCommand || word == kRefusal;
  if (!line.empty()) out_ << ' ' << VisibleText(line, command ? "\t" : "");
  out_ << '\n' << std::flush;
  if (!out_) throw OutputFailed();
}

}  // namespace quorvane::guion
