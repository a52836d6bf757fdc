#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace quorvane::fuzz {

/// Makes inputs out of known ones: bytes changed, inserted and dropped, pieces doubled, words and
/// pieces of another input put in; now and then bytes out of nothing. The same for the same seed.
class Mutator {
 public:
  Mutator(std::vector<std::string> corpus, std::uint32_t seed);

  std::string Next();

 private:
  std::size_t Below(std::size_t count);
  std::string Noise();
  void Change(std::string& input);

  std::vector<std::string> corpus_;
  std::mt19937 random_;
};

}  // namespace quorvane::fuzz
