#pragma once

#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "bench/BenchScreen.h"
#include "bench/RecordingConnection.h"

namespace quorvane::bench {

/// A session of the unrestricted user on a school, with a screen whose user does as told.
class Session {
 public:
  explicit Session(const std::string& school);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  Session(Session&&) = delete;
  Session& operator=(Session&&) = delete;

  BenchScreen& Screen() noexcept { return screen_; }

  /// Opens the screen of that node; the gestures have been given to the screen before.
  void Open(std::uint8_t node);

  /// The connection that the module's statements go to.
  RecordingConnection& Centro() noexcept { return centro_; }

 private:
  RecordingConnection centro_;
  sqlite::SqliteConnection borrado_;
  sqlite::SqliteConnection entrada_;
  BenchScreen screen_;
};

}  // namespace quorvane::bench
