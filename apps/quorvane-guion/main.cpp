#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sys/resource.h>

#include "apps/quorvane-guion/CommandLine.h"
#include "apps/quorvane-guion/PlayScript.h"

namespace {

using namespace quorvane;

constexpr int kNotPlayed = 2;
constexpr rlim_t kStack = rlim_t{100} << 20U;

/// Forms that take turns nest, each a level deeper: a long script needs more than the usual stack.
void AllowDeepNesting() {
  rlimit stack{};
  if (getrlimit(RLIMIT_STACK, &stack) != 0 || stack.rlim_cur >= kStack) return;
  stack.rlim_cur = std::min(kStack, stack.rlim_max);
  static_cast<void>(setrlimit(RLIMIT_STACK, &stack));
}

int PlayFile(const guion::CommandLine& line) {
  std::ifstream script(line.script, std::ios::binary);
  if (!script || std::filesystem::is_directory(line.script)) {
    std::cerr << "No se puede leer el guion " << line.script << '\n';
    return kNotPlayed;
  }
  return guion::PlayScript(line.options, script, std::cout, std::cerr);
}

int Play(int argc, char** argv) {
  int status = 0;
  const auto line = guion::ReadCommandLine(argc, argv, status);
  if (!line) return status;
  if (!line->script.empty()) return PlayFile(*line);
  return guion::PlayScript(line->options, std::cin, std::cout, std::cerr, true);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    AllowDeepNesting();
    const auto status = Play(argc, argv);
    if (std::cout.flush()) return status;
    std::cerr << "No se puede escribir la salida: compruebe que queda espacio en el disco\n";
    return kNotPlayed;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return kNotPlayed;
  }
}
