#pragma once

#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "bench/BenchScreen.h"

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

  /// From now on the statements are kept; the time that this takes is in what is measured.
  void Record();
  /// The statements since `Record`, which are kept no more.
  std::vector<std::string> Recorded();

 private:
  sqlite::SqliteConnection centro_;
  sqlite::SqliteConnection borrado_;
  sqlite::SqliteConnection entrada_;
  BenchScreen screen_;
  std::vector<std::string> recorded_;
};

}  // namespace quorvane::bench
