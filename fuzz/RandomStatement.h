#pragma once

#include <string>

#include "fuzz/Choices.h"

namespace quorvane::fuzz {

/// A statement twice: as the module would write it, with `+` between texts, and as the engine takes
/// it by itself.
struct Statement {
  std::string module;
  std::string engine;
  bool writes = false;
};

/// A random SELECT, INSERT, UPDATE or DELETE on the tables of the small school.
Statement RandomStatement(Choices& choices);

}  // namespace quorvane::fuzz
