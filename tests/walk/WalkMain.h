#pragma once

#include <functional>

#include "tests/walk/History.h"
#include "tests/walk/WalkOptions.h"

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
int WalkMain(const WalkProgram& program, int argc, char** argv);

}  // namespace quorvane::test
