#include "fuzz/Mutator.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quorvane::fuzz {
namespace {

constexpr std::array<std::string_view, 40> kWords{"'",       "\"",
                                                  "[",       "]",
                                                  "`",       "+",
                                                  "-",       "--",
                                                  "/*",      "*/",
                                                  "(",       ")",
                                                  ",",       ".",
                                                  "?",       "1",
                                                  "0x1F",    "1e-3",
                                                  ".5e-1",   "''",
                                                  " AND ",   " OR ",
                                                  "SELECT ", " FROM ",
                                                  " WHERE ", " BY ",
                                                  " AS ",    " ON ",
                                                  " IN (",   " UNION ",
                                                  "\n",      "\r\n",
                                                  "\t",      "\xEF\xBB\xBF",
                                                  "ñ",       "\xFF",
                                                  "#1",      "=2",
                                                  "<>",      "99999999999999999999"};
constexpr std::size_t kLongest = 2000;

}  // namespace

Mutator::Mutator(std::vector<std::string> corpus, std::uint32_t seed)
    : corpus_(std::move(corpus)), random_(seed) {}

std::size_t Mutator::Below(std::size_t count) { return random_() % count; }

std::string Mutator::Noise() {
  std::string noise(1 + Below(160), '\0');
  for (auto& byte : noise) byte = static_cast<char>(Below(256));
  // Half of them choices of a generator, which begin with 0.
  if (Below(2) == 0) noise.front() = '\0';
  return noise;
}

std::string Mutator::Next() {
  if (corpus_.empty() || Below(3) == 0) return Noise();
  auto input = corpus_[Below(corpus_.size())];
  for (auto changes = 1 + Below(6); changes > 0; --changes) Change(input);
  if (input.size() > kLongest) input.resize(kLongest);
  return input;
}

void Mutator::Change(std::string& input) {
  const auto at = Below(input.size() + 1);
  const auto length = std::min(1 + Below(12), input.size() - at);
  switch (Below(6)) {
    case 0:
      if (at < input.size()) input[at] = static_cast<char>(Below(256));
      break;
    case 1:
      input.insert(at, 1, static_cast<char>(Below(128)));
      break;
    case 2:
      input.erase(at, length);
      break;
    case 3:
      input.insert(at, input.substr(at, length));
      break;
    case 4: {
      const auto& other = corpus_[Below(corpus_.size())];
      input.insert(at, other.substr(Below(other.size() + 1), 1 + Below(40)));
      break;
    }
    default:
      input.insert(at, kWords[Below(kWords.size())]);
  }
}

}  // namespace quorvane::fuzz
