#include "adapters/sqlite/Tokens.h"

namespace quorvane::sqlite {

std::size_t EndOfQuoted(std::string_view text, std::size_t at) {
  const auto partner = text[at] == '[' ? ']' : text[at];
  for (++at; at < text.size(); ++at) {
    if (text[at] != partner) continue;
    const auto doubled = partner != ']' && at + 1 < text.size() && text[at + 1] == partner;
    if (!doubled) return at + 1;
    ++at;
  }
  return text.size();
}

}  // namespace quorvane::sqlite
