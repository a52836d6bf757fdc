#pragma once

#include <string>

#include "apps/escuela/Prng.h"

namespace quorvane::test {

/// Statements of other users, of the host and of programs that died: what the module may find
/// changed when its next screen opens.
std::string RandomDisturbance(Prng& random);

/// A lock that lost its publication bears a number from here on: the next publication takes the
/// highest plus one, and would take such locks for its own.
inline constexpr int kLostPublication = 900;

}  // namespace quorvane::test
