#include "platform/text/VisibleText.h"

#include <cstdint>
#include <optional>

#include "platform/text/Utf8.h"

namespace quorvane {
namespace {

constexpr char32_t kDelete = 0x7F;
constexpr char32_t kPastControls = 0xA0;

struct Range {
  char32_t first;
  char32_t last;
};

// Marks that turn the direction of writing, and the ends of a line and of a paragraph.
constexpr Range kMarks[] = {
    {0x061C, 0x061C}, {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}, {0x206A, 0x206F}};

void AppendHex(std::string& text, std::uint32_t number, unsigned digits) {
  for (auto shift = 4 * digits; shift > 0; shift -= 4)
    text += "0123456789abcdef"[number >> (shift - 4) & 0xFU];
}

void AppendEscaped(std::string& text, char32_t letter) {
  switch (letter) {
    case '\n':
      text += "\\n";
      break;
    case '\r':
      text += "\\r";
      break;
    case '\t':
      text += "\\t";
      break;
    default:
      text += letter <= kDelete ? "\\x" : "\\u";
      AppendHex(text, letter, letter <= kDelete ? 2 : 4);
  }
}

/// A text with what `append` makes of each letter that acts on a terminal, and of each byte that
/// is no UTF-8, which it is given as none.
template <class Append>
std::string Rewritten(std::string_view text, const Append& append) {
  std::string visible;
  visible.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto begin = at;
    const auto letter = NextUtf8(text, at);
    if (letter && !ActsOnTerminal(*letter))
      visible += text.substr(begin, at - begin);
    else
      append(visible, letter, text[begin]);
  }
  return visible;
}

}  // namespace

bool ActsOnTerminal(char32_t letter) noexcept {
  if (letter < ' ' || (letter >= kDelete && letter < kPastControls)) return true;
  for (const auto& marks : kMarks)
    if (letter >= marks.first && letter <= marks.last) return true;
  return false;
}

std::string VisibleText(std::string_view text, std::string_view kept) {
  return Rewritten(text, [kept](std::string& visible, std::optional<char32_t> letter, char byte) {
    if (kept.find(byte) != std::string_view::npos) {
      visible += byte;
      return;
    }
    if (letter) return AppendEscaped(visible, *letter);
    visible += "\\x";
    AppendHex(visible, static_cast<unsigned char>(byte), 2);
  });
}

std::string VisibleJson(std::string_view json) {
  return Rewritten(json, [](std::string& visible, std::optional<char32_t> letter, char /*byte*/) {
    visible += "\\u";
    constexpr char32_t kReplacement = 0xFFFD;
    AppendHex(visible, letter.value_or(kReplacement), 4);
  });
}

}  // namespace quorvane
