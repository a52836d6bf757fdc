#include "apps/quorvane-escuela/ProgressLine.h"

#include <unistd.h>
#include <utility>

namespace quorvane {

ProgressLine::ProgressLine(std::string doing, std::chrono::milliseconds patience)
    : doing_(std::move(doing)),
      from_(std::chrono::steady_clock::now() + patience),
      shown_(isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() { Show("\r\033[K"); }

void ProgressLine::Percent(std::size_t done, std::size_t all) const {
  Show("\r" + doing_ + "... " + std::to_string(all == 0 ? 100 : done * 100 / all) + " %");
}

void ProgressLine::Working() const { Show("\r" + doing_ + "..."); }

void ProgressLine::End() {
  Show("\r\033[K");
  shown_ = false;
}

void ProgressLine::Show(const std::string& text) const {
  if (!shown_ || std::chrono::steady_clock::now() < from_) return;
  // Not through the stream of the errors, where nothing may act on the terminal as this has to.
  static_cast<void>(!write(STDERR_FILENO, text.data(), text.size()));
}

}  // namespace quorvane
