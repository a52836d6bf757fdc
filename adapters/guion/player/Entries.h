#pragma once

#include <functional>
#include <string>

#include "adapters/guion/language/Command.h"

namespace quorvane::guion {

/// The entries of a list, whatever control holds them.
struct Entries {
  int count = 0;
  std::function<std::string(int)> text;
  std::function<std::int32_t(int)> data;
};

/// The index of the entry that the word names: the first with that text or data. Refused when the
/// list has no such entry.
int FindEntry(const Word& word, const Entries& entries);

}  // namespace quorvane::guion
