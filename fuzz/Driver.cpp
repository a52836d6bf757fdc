#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/Mutator.h"
#include "platform/text/PlainNumber.h"

// Feeds a fuzzer where the compiler brings no driver of its own: first its corpus, then what a
// mutator makes of it, for so many seconds.
//
//   fuzz_sql CORPUS [SECONDS [SEED]]
//
// CORPUS is a folder of inputs, one a file, or one input. An input that ends the program is kept in
// the working folder as fuzz-failure.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::string current;  // the input that is being run

extern "C" void KeepCurrent(int /*signal*/) {
  std::ofstream("fuzz-failure", std::ios::binary) << current;
  std::_Exit(1);
}

void Run(const std::string& input) {
  current = input;
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(current.data()), current.size());
}

std::string Content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> Corpus(const std::filesystem::path& path) {
  if (!std::filesystem::is_directory(path)) return {Content(path)};
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(path)) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  std::vector<std::string> corpus;
  // A file of lines is an input a line, and as a whole.
  for (const auto& file : files) {
    corpus.push_back(Content(file));
    if (file.extension() != ".lines") continue;
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) corpus.push_back(line);
  }
  return corpus;
}

}  // namespace

#if defined(__SANITIZE_ADDRESS__)
extern "C" void __sanitizer_set_death_callback(void (*callback)());
#endif

int main(int count, char** arguments) {
  if (count < 2) {
    std::cerr << "fuzz CORPUS [SECONDS [SEED]]\n";
    return 2;
  }
  std::signal(SIGABRT, KeepCurrent);
#if defined(__SANITIZE_ADDRESS__)
  __sanitizer_set_death_callback([] { KeepCurrent(SIGABRT); });
#endif
  const auto corpus = Corpus(arguments[1]);
  const auto seconds = quorvane::PlainNumber<unsigned>(count > 2 ? arguments[2] : "0");
  const auto seed = quorvane::PlainNumber<std::uint32_t>(count > 3 ? arguments[3] : "1");
  if (!seconds || !seed) {
    std::cerr << "SECONDS and SEED are plain decimal numbers\n";
    return 2;
  }
  using Clock = std::chrono::steady_clock;
  const auto until = Clock::now() + std::chrono::seconds(*seconds);
  for (const auto& input : corpus) Run(input);
  std::uint64_t inputs = corpus.size();
  quorvane::fuzz::Mutator mutator(corpus, *seed);
  for (; Clock::now() < until; ++inputs) Run(mutator.Next());
  std::cout << inputs << " inputs\n";
  return 0;
}
