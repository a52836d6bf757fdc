#pragma once

#include <string>

#include "apps/escuela/Prng.h"
#include "tests/walk/School.h"

namespace quorvane::test {

/// The host of the module on the walk: a session of any user, and components that answer anything
/// that they may. Its components are in use as long as it lives.
class RandomHost {
 public:
  explicit RandomHost(Prng& random);
  ~RandomHost();
  RandomHost(const RandomHost&) = delete;
  RandomHost& operator=(const RandomHost&) = delete;
  RandomHost(RandomHost&&) = delete;
  RandomHost& operator=(RandomHost&&) = delete;

  /// Hands in the session of a user drawn by lot. What it tells is for the history.
  std::string SignIn(School& school);

 private:
  Prng& random_;
};

}  // namespace quorvane::test
