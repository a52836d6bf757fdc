#pragma once

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <functional>

namespace quorvane::zendria {

/// Turns the signals that ask a program to end (SIGHUP, SIGINT, SIGTERM) into calls from the event
/// loop, so that what runs is finished first. A signal that was ignored when the program started,
/// as under `nohup`, stays ignored.
///
/// One at a time. Made after the `QCoreApplication`; with the object the former actions come back.
class SignalWatch {
 public:
  /// Throws `std::system_error` when the system has no pipe left. `arrived` is called with the
  /// number of each signal, in their order.
  explicit SignalWatch(std::function<void(int)> arrived);
  ~SignalWatch();
  SignalWatch(const SignalWatch&) = delete;
  SignalWatch& operator=(const SignalWatch&) = delete;
  SignalWatch(SignalWatch&&) = delete;
  SignalWatch& operator=(SignalWatch&&) = delete;

 private:
  static constexpr std::array kSignals{SIGHUP, SIGINT, SIGTERM};

  /// Both ends of a pipe, closed with the object.
  class Pipe {
   public:
    Pipe();
    ~Pipe();
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    Pipe(Pipe&&) = delete;
    Pipe& operator=(Pipe&&) = delete;

    [[nodiscard]] int Out() const noexcept { return ends_[0]; }
    [[nodiscard]] int In() const noexcept { return ends_[1]; }

   private:
    std::array<int, 2> ends_{};
  };

  void Read();

  std::function<void(int)> arrived_;
  Pipe pipe_;
  QSocketNotifier notifier_;
  std::array<struct sigaction, kSignals.size()> former_{};
};

/// Ends the process by that signal, as who has sent it expects. Nothing is cleaned up any more.
[[noreturn]] void EndBySignal(int signal);

}  // namespace quorvane::zendria
