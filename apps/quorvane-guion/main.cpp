#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "apps/quorvane-guion/CommandLine.h"
#include "apps/quorvane-guion/PlayScript.h"

namespace {

using namespace quorvane;

constexpr int kNotPlayed = 2;

int PlayFile(const guion::CommandLine& line) {
  std::ifstream script(line.script, std::ios::binary);
  if (!script || std::filesystem::is_directory(line.script)) {
    std::cerr << "No se puede leer el guion " << line.script << '\n';
    return kNotPlayed;
  }
  return guion::PlayScript(line.options, script, std::cout, std::cerr);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    int status = 0;
    const auto line = guion::ReadCommandLine(argc, argv, status);
    if (!line) return status;
    if (!line->script.empty()) return PlayFile(*line);
    return guion::PlayScript(line->options, std::cin, std::cout, std::cerr);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return kNotPlayed;
  }
}
