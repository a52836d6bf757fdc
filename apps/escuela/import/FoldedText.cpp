#include "apps/escuela/import/FoldedText.h"

#include <string_view>

#include "platform/text/Utf8.h"

namespace quorvane {
namespace {

constexpr std::u32string_view kFrom =
    U"áàâäãåéèêëíìîïóòôöõúùûüçýÿºª"
    U"ÁÀÂÄÃÅÉÈÊËÍÌÎÏÓÒÔÖÕÚÙÛÜÇÝ";
constexpr std::u32string_view kTo =
    U"aaaaaaeeeeiiiiooooouuuucyyoa"
    U"aaaaaaeeeeiiiiooooouuuucy";
static_assert(kFrom.size() == kTo.size());

char32_t Folded(char32_t letter) {
  if (letter >= U'A' && letter <= U'Z') return letter + (U'a' - U'A');
  if (letter == U'Ñ') return U'ñ';
  const auto at = kFrom.find(letter);
  return at == std::u32string_view::npos ? letter : kTo[at];
}

}  // namespace

std::string FoldedText(const std::string& text) {
  std::string folded;
  auto blank = false;
  for (const auto letter : Utf8Decode(text)) {
    if (letter == U' ' || letter == U'\t' || letter == U'\u00A0') {
      blank = !folded.empty();
      continue;
    }
    if (blank) folded += ' ';
    blank = false;
    folded += Utf8Encode(Folded(letter));
  }
  return folded;
}

}  // namespace quorvane
