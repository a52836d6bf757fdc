#pragma once

#include <csignal>

namespace quorvane::test {

/// The point of a session at which the program gets a signal: while its n-th statement runs, when
/// the user rests for the n-th time, with a window or a message before him, or in the very moment
/// in which he saves for the n-th time.
struct Moment {
  enum class Kind { Never, Statement, Rest, Save };

  Kind kind = Kind::Never;
  int number = 0;  ///< from 1
  int signal = SIGTERM;
};

/// In the program's process, before it opens a database: what its engine runs is seen from now on.
void Expect(const Moment& moment);
/// The statements from now on count.
void BeginCounting();
/// How many have run since.
int StatementsSoFar();
/// The user rests. True from the moment on: he does nothing any more.
bool AtRest();
/// The user is about to save, and does.
void Saves();

}  // namespace quorvane::test
