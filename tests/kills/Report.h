#pragma once

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace quorvane::test {

/// What a line begins with.
inline constexpr char kBeginsToRead = 'l';
inline constexpr char kBeginsToWrite = 'e';
inline constexpr char kReturned = 'v';
inline constexpr char kFailed = 'f';

/// What a victim tells of its statements over a pipe, a line each: one that is about to be
/// executed, with its text if it writes, and that it has come back, well or not.
class Report {
 public:
  Report() {
    // No program that is started meanwhile may hold the pipe open.
    if (pipe2(ends_, O_CLOEXEC) != 0) throw std::runtime_error("No se puede crear una tubería");
  }
  ~Report() {
    close(ends_[0]);
    OnlyRead();
  }
  Report(Report&&) = delete;

  /// The side that tells, in the victim.
  [[nodiscard]] int In() const noexcept { return ends_[1]; }
  /// In the parent, once the victim runs: else the end of the report would never be seen.
  void OnlyRead() {
    if (ends_[1] >= 0) close(ends_[1]);
    ends_[1] = -1;
  }

  /// Waits for one more line and takes it in. False at the end.
  bool Next() {
    auto end = unread_.find('\n');
    for (; end == std::string::npos; end = unread_.find('\n')) {
      std::array<char, 65536> buffer{};
      const auto size = read(ends_[0], buffer.data(), buffer.size());
      if (size < 0 && errno == EINTR) continue;
      // A line that was cut off tells nothing: the statement had begun or come back unheard.
      if (size <= 0) return false;
      unread_.append(buffer.data(), static_cast<std::size_t>(size));
    }
    const auto line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    switch (line.front()) {
      case kBeginsToRead:
        ++begun_;
        break;
      case kBeginsToWrite:
        ++begun_;
        inFlight_ = line.substr(1);
        if (inFlight_->starts_with("DELETE FROM PublicacionPte")) publishes_ = false;
        break;
      case kReturned:
        ++returned_;
        if (inFlight_) {
          written_.push_back(*inFlight_);
          if (inFlight_->starts_with("INSERT INTO Publicacionpte")) publishes_ = true;
        }
        inFlight_.reset();
        break;
      default:
        inFlight_.reset();
    }
    return true;
  }

  [[nodiscard]] int Begun() const noexcept { return begun_; }
  [[nodiscard]] int Returned() const noexcept { return returned_; }
  /// The last that has begun writes, and hasn't come back.
  [[nodiscard]] const std::optional<std::string>& InFlight() const noexcept { return inFlight_; }
  /// A form has its publication, and hasn't begun to give its locks back.
  [[nodiscard]] bool Publishes() const noexcept { return publishes_; }
  /// All that wrote and came back well, in their order.
  [[nodiscard]] const std::vector<std::string>& Written() const noexcept { return written_; }

 private:
  int ends_[2]{-1, -1};
  std::string unread_;
  int begun_ = 0;
  int returned_ = 0;
  bool publishes_ = false;
  std::optional<std::string> inFlight_;
  std::vector<std::string> written_;
};

}  // namespace quorvane::test
