#include "tests/walk/WalkMain.h"

#include <cstdint>
#include <iostream>

#include "tests/support/ProgramOptions.h"

// The sanitizers' runtime, where there is one: what is called before it ends the program.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace quorvane::test {
namespace {

History& TheHistory() {
  static History history;
  return history;
}

const char* nameNow = "";
std::uint64_t seedNow = 0;

/// How to come back to where it went wrong, and what was done last.
void TellWhere() {
  std::cerr << nameNow << ": --semilla " << seedNow << "; lo último:\n";
  TheHistory().Print(std::cerr);
  std::cerr.flush();
}

}  // namespace

int WalkMain(const WalkProgram& program, int argc, char** argv) {
  auto options = program.defaults;
  ProgramOptions arguments(program.name, program.usage);
  arguments.Positive("--gestos", options.gestures).Positive("--semilla", options.seed);
  if (program.onServer) arguments.Text("--odbc", options.odbc).Text("--duena", options.owner);
  return arguments.Run(argc, argv, [&] {
    nameNow = program.name;
    seedNow = options.seed;
    if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(TellWhere);
    try {
      program.run(options, TheHistory());
    } catch (...) {
      TellWhere();
      throw;
    }
    return 0;
  });
}

}  // namespace quorvane::test
