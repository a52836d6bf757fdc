#pragma once

#include <cstdint>
#include <functional>
#include <iostream>

#include "tests/support/ProgramOptions.h"
#include "tests/walk/History.h"
#include "tests/walk/WalkOptions.h"

// The sanitizers' runtime, where there is one: what is called before it ends the program.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace quorvane::test {

/// A program that walks at random: `--gestos N --semilla S`, and `--odbc C --duena C` for one that
/// knows how to walk on a server.
struct WalkProgram {
  const char* name;
  const char* usage;
  WalkOptions defaults;
  /// Walks and reports. What it throws is told with the seed and with what was done last.
  std::function<void(const WalkOptions& options, History& history)> run;
  bool onServer = false;
};

/// Its exit status: 0, 1 for a walk that went wrong, 2 for bad arguments.
inline int WalkMain(const WalkProgram& program, int argc, char** argv) {
  // Static for a callback that is handed nothing.
  static const char* name;
  static std::uint64_t seed;
  static History history;
  // How to come back to where it went wrong, and what was done last.
  const auto tellWhere = [] {
    std::cerr << name << ": --semilla " << seed << "; lo último:\n";
    history.Print(std::cerr);
    std::cerr.flush();
  };
  auto options = program.defaults;
  ProgramOptions arguments(program.name, program.usage);
  arguments.Positive("--gestos", options.gestures).Positive("--semilla", options.seed);
  if (program.onServer) arguments.Text("--odbc", options.odbc).Text("--duena", options.owner);
  return arguments.Run(argc, argv, [&] {
    name = program.name;
    seed = options.seed;
    if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(tellWhere);
    try {
      program.run(options, history);
    } catch (...) {
      tellWhere();
      throw;
    }
    return 0;
  });
}

}  // namespace quorvane::test
