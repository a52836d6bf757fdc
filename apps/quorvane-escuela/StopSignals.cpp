#include "apps/quorvane-escuela/StopSignals.h"

#include <csignal>
#include <cstdlib>

#include "apps/escuela/PartialFile.h"

namespace quorvane {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};
constexpr auto kKilled = 128;  // and the signal's number, as a shell has it

volatile std::sig_atomic_t came = 0;

void Handle(int number, void (*handler)(int));

/// Who doesn't want to wait for what the task waits for signals again, and ends it at once.
void EndAtOnce(int number) {
  PartialFile::RemoveAny();
  std::signal(number, SIG_DFL);
  std::raise(number);
}

void Remember(int number) {
  came = number;
  for (const auto other : kSignals) Handle(other, EndAtOnce);
}

void Handle(int number, void (*handler)(int)) {
  struct sigaction before {};
  sigaction(number, nullptr, &before);
  if (before.sa_handler == SIG_IGN) return;
  struct sigaction action {};
  action.sa_handler = handler;
  // What a driver is waiting for goes on.
  action.sa_flags = SA_RESTART;
  sigaction(number, &action, nullptr);
}

}  // namespace

void StopSignals::Catch() {
  for (const auto number : kSignals) Handle(number, Remember);
}

bool StopSignals::Came() noexcept { return came != 0; }

void StopSignals::End() {
  const int number = came;
  std::signal(number, SIG_DFL);
  std::raise(number);
  std::_Exit(kKilled + number);
}

}  // namespace quorvane
