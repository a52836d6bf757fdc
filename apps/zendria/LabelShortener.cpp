#include "apps/zendria/LabelShortener.h"

#include <string>

#include "platform/controls/Label.h"
#include "platform/host/FrontEnd.h"
#include "platform/text/Utf8.h"

namespace quorvane::zendria {
namespace {

constexpr auto kCut = "...";

std::string Start(const std::u32string& letters, std::size_t length) {
  std::string text;
  for (std::size_t at = 0; at < length; ++at) text += Utf8Encode(letters[at]);
  return text;
}

/// The longest start of the text that fits with the mark of the cut behind it.
std::string Cut(const std::string& text, const Label& label, FrontEnd& screen) {
  const auto letters = Utf8Decode(text);
  std::size_t fits = 0;
  std::size_t tooLong = letters.size();
  while (tooLong - fits > 1) {
    const auto middle = fits + (tooLong - fits) / 2;
    const auto width = screen.TextWidth(label.Owner(), Start(letters, middle) + kCut);
    (width <= label.Width() ? fits : tooLong) = middle;
  }
  while (fits > 0 && letters[fits - 1] == U' ') --fits;
  return Start(letters, fits) + kCut;
}

}  // namespace

void ShortenToWidth(Label& label, FrontEnd& screen) {
  if (label.Width() <= 0) return;
  const auto whole = label.Caption();
  if (screen.TextWidth(label.Owner(), whole) > label.Width()) {
    label.ToolTipText(whole);
    label.Caption(Cut(whole, label, screen));
  } else if (const auto& tip = label.ToolTipText(); !tip.empty()) {
    const auto cutBefore =
        screen.TextWidth(label.Owner(), tip) > label.Width() && Cut(tip, label, screen) == whole;
    if (!cutBefore) label.ToolTipText({});
  }
}

}  // namespace quorvane::zendria
