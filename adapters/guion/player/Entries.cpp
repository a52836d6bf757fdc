#include "adapters/guion/player/Entries.h"

#include "adapters/guion/player/Refusal.h"
#include "platform/text/PlainNumber.h"

namespace quorvane::guion {
namespace {

template <class Matches>
int First(const Entries& entries, Matches matches) {
  for (int i = 0; i < entries.count; ++i)
    if (matches(i)) return i;
  return -1;
}

int Find(const Word& word, const Entries& entries) {
  const auto number = word.quoted || word.text.empty()
                          ? std::nullopt
                          : PlainNumber<std::int32_t>(std::string_view(word.text).substr(1));
  if (number) {
    if (word.text.front() == '#') return *number < entries.count ? *number : -1;
    if (word.text.front() == '=')
      return First(entries, [&](int i) { return entries.data(i) == *number; });
  }
  return First(entries, [&](int i) { return entries.text(i) == word.text; });
}

}  // namespace

int FindEntry(const Word& word, const Entries& entries) {
  const auto index = Find(word, entries);
  if (index < 0) throw Refusal("no hay ninguna entrada " + word.text);
  return index;
}

}  // namespace quorvane::guion
