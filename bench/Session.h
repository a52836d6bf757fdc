#pragma once

#include <memory>
#include <string>

#include "apps/escuela/SchoolAddress.h"
#include "bench/BenchScreen.h"
#include "bench/Recorder.h"
#include "platform/data/Connection.h"

namespace quorvane::bench {

/// A session of the unrestricted user on a school, with a screen whose user does as told.
class Session {
 public:
  explicit Session(const SchoolAddress& school);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  Session(Session&&) = delete;
  Session& operator=(Session&&) = delete;

  BenchScreen& Screen() noexcept { return screen_; }

  /// Opens the screen of that node; the gestures have been given to the screen before.
  void Open(std::uint8_t node);

  /// What the module executes, on any of its connections.
  Recorder& Executed() noexcept { return recorder_; }

 private:
  Recorder recorder_;
  std::unique_ptr<Connection> centro_;
  std::unique_ptr<Connection> borrado_;
  std::unique_ptr<Connection> entrada_;
  BenchScreen screen_;
};

}  // namespace quorvane::bench
