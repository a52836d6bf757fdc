#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvane::test {

/// What a victim tells of its statements over a pipe, a line each: one that is about to be
/// executed, with its text if it writes, and that it has come back, well or not.
class Report {
 public:
  Report();
  ~Report();
  Report(Report&&) = delete;

  /// The side that tells, in the victim.
  [[nodiscard]] int In() const noexcept { return ends_[1]; }
  /// In the parent, once the victim runs: else the end of the report would never be seen.
  void OnlyRead();

  /// Waits for one more line and takes it in. False at the end.
  bool Next();

  [[nodiscard]] int Begun() const noexcept { return begun_; }
  [[nodiscard]] int Returned() const noexcept { return returned_; }
  /// The last that has begun writes, and hasn't come back.
  [[nodiscard]] const std::optional<std::string>& InFlight() const noexcept { return inFlight_; }
  /// A form has its publication, and hasn't begun to give its locks back.
  [[nodiscard]] bool Publishes() const noexcept { return publishes_; }
  /// All that wrote and came back well, in their order.
  [[nodiscard]] const std::vector<std::string>& Written() const noexcept { return written_; }

 private:
  [[nodiscard]] bool Fill();

  int ends_[2]{-1, -1};
  std::string unread_;
  int begun_ = 0;
  int returned_ = 0;
  bool publishes_ = false;
  std::optional<std::string> inFlight_;
  std::vector<std::string> written_;
};

/// What a line begins with.
inline constexpr char kBeginsToRead = 'l';
inline constexpr char kBeginsToWrite = 'e';
inline constexpr char kReturned = 'v';
inline constexpr char kFailed = 'f';

}  // namespace quorvane::test
