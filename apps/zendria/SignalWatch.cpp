#include "apps/zendria/SignalWatch.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quorvane::zendria {
namespace {

static_assert(std::atomic<int>::is_always_lock_free);
std::atomic<int> wakeUp = -1;  // the pipe's end that the handler writes to

void Handle(int signal) {
  // What it interrupts must not see another errno.
  const auto error = errno;
  const auto number = static_cast<unsigned char>(signal);
  // A full pipe holds signals enough.
  static_cast<void>(!write(wakeUp, &number, sizeof number));
  errno = error;
}

}  // namespace

SignalWatch::Pipe::Pipe() {
  if (pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    throw std::system_error(errno, std::generic_category(), "pipe2");
}

SignalWatch::Pipe::~Pipe() {
  for (const auto end : ends_) close(end);
}

SignalWatch::SignalWatch(std::function<void(int)> arrived)
    : arrived_(std::move(arrived)), notifier_(pipe_.Out(), QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { Read(); });
  wakeUp = pipe_.In();
  struct sigaction action {};
  action.sa_handler = Handle;
  // A statement that waits for its file or server isn't to fail by a signal.
  action.sa_flags = SA_RESTART;
  sigemptyset(&action.sa_mask);
  for (std::size_t at = 0; at < kSignals.size(); ++at) {
    sigaction(kSignals[at], nullptr, &former_[at]);
    if (former_[at].sa_handler != SIG_IGN) sigaction(kSignals[at], &action, nullptr);
  }
}

SignalWatch::~SignalWatch() {
  for (std::size_t at = 0; at < kSignals.size(); ++at)
    sigaction(kSignals[at], &former_[at], nullptr);
  wakeUp = -1;
}

void SignalWatch::Read() {
  unsigned char number = 0;
  while (read(pipe_.Out(), &number, sizeof number) == sizeof number) arrived_(number);
}

void EndBySignal(int signal) {
  struct sigaction action {};
  action.sa_handler = SIG_DFL;
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);
  sigset_t own;
  sigemptyset(&own);
  sigaddset(&own, signal);
  sigprocmask(SIG_UNBLOCK, &own, nullptr);
  raise(signal);
  std::abort();
}

}  // namespace quorvane::zendria
