#include "apps/programs/VisibleOutput.h"

#include <string_view>

#include "platform/text/VisibleText.h"

namespace quorvane {
VisibleOutput::~VisibleOutput() {
  const auto arrived = WriteLine() && to_->pubsync() == 0;
  // The change of buffers takes the stream's failures away.
  const auto state = stream_.rdstate();
  stream_.rdbuf(to_);
  stream_.setstate(arrived ? state : state | std::ios::badbit);
}

VisibleOutput::int_type VisibleOutput::overflow(int_type letter) {
  if (traits_type::eq_int_type(letter, traits_type::eof())) return traits_type::not_eof(letter);
  line_ += traits_type::to_char_type(letter);
  return line_.back() == '\n' && !WriteLine() ? traits_type::eof() : letter;
}

int VisibleOutput::sync() { return WriteLine() ? to_->pubsync() : -1; }

bool VisibleOutput::WriteLine() {
  std::string_view text = line_;
  const auto end = text.ends_with("\r\n") ? 2U : text.ends_with('\n') ? 1U : 0U;
  auto visible = VisibleText(text.substr(0, text.size() - end), "\t");
  visible += text.substr(text.size() - end);
  line_.clear();
  const auto size = static_cast<std::streamsize>(visible.size());
  return to_->sputn(visible.data(), size) == size;
}

}  // namespace quorvane
