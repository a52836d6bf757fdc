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
constexpr auto kTilde = U'\u0303';
constexpr auto kFirstMark = U'\u0300';  // to be set on the letter before it
constexpr auto kLastMark = U'\u036F';
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
    // Macs write an accent behind its letter; that of ñ makes another letter, as those written in
    // one do.
    if (letter == kTilde && folded.ends_with('n')) {
      folded.pop_back();
      folded += Utf8Encode(U'ñ');
    }
    if (letter >= kFirstMark && letter <= kLastMark) continue;
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
