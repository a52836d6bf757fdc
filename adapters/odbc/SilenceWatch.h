#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "adapters/odbc/ServerSockets.h"

namespace quorvane::odbc {

/// Ends a driver's call that waits for a server that has gone silent. The system doesn't: it knows
/// nothing of a server that has taken a statement and then stands still, or of a device on the way
/// that still takes what is sent. Who waits for another's lock looks the same, so the server is
/// asked anew whether it is there, by a connection beside: where it answers the call goes on.
///
/// Works in a thread of its own, which sleeps while no call is made, and may outlive the watch by a
/// last question.
class SilenceWatch {
 public:
  using Clock = std::chrono::steady_clock;

  /// How long a call may take before the server is asked, and again each time it has answered.
  static constexpr std::chrono::seconds kPatience{8};
  /// Asks whether anybody is there, where the connection has led to; it comes back in its own good
  /// time.
  using Question = std::function<bool(const std::optional<ServerSockets::Peer>& reached)>;

  /// `answers` asks, in a thread of the watch's.
  SilenceWatch(const std::string& port, Question answers);
  ~SilenceWatch();
  SilenceWatch(const SilenceWatch&) = delete;
  SilenceWatch& operator=(const SilenceWatch&) = delete;
  SilenceWatch(SilenceWatch&&) = delete;
  SilenceWatch& operator=(SilenceWatch&&) = delete;

  /// A call, for as long as this lives.
  class Call {
   public:
    explicit Call(SilenceWatch& watch) : watch_(watch) { watch_.Begin(); }
    ~Call() { watch_.End(); }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    Call(Call&&) = delete;
    Call& operator=(Call&&) = delete;

   private:
    SilenceWatch& watch_;
  };

  /// Nobody wants to wait any longer for the calls that are made now, of all watches: their servers
  /// are asked at once, unless they are being asked, and have the time for an answer that they
  /// always have: a slow one isn't a silent one. For any thread.
  static void Hurry();

  /// The driver has connected: the sockets that it has opened are its own. False when there are
  /// none, and nothing to be watched.
  bool Connected();
  /// Whether a call has been ended.
  [[nodiscard]] bool FoundSilence() const;
  /// Whether the server has ended the connection.
  [[nodiscard]] bool HungUp() const;

 private:
  struct State;
  struct All;

  void Begin();
  void End();
  static void Work(const std::shared_ptr<State>& state);

  std::shared_ptr<State> state_;
};

}  // namespace quorvane::odbc
