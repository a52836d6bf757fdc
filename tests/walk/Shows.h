#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace quorvane::test {

/// The shows of forms on somebody's screen: which run, and how often each form has come.
class Shows {
 public:
  /// One that runs as long as this lives, so also when it ends by an error.
  class Running {
   public:
    Running(Shows& shows, const std::string& form) : shows_(shows) {
      shows_.deepest_ = std::max(shows_.deepest_, ++shows_.depth_);
      ++shows_.times_[form];
      shows_.Touch(form);
    }
    ~Running() { --shows_.depth_; }
    Running(Running&&) = delete;

   private:
    Shows& shows_;
  };

  /// That form is the last that something happened to.
  void Touch(const std::string& form) { last_ = form; }

  /// How many run.
  [[nodiscard]] std::size_t Depth() const noexcept { return depth_; }
  [[nodiscard]] std::size_t Deepest() const noexcept { return deepest_; }
  /// How often each form has been shown.
  [[nodiscard]] const std::map<std::string, std::uint64_t>& Times() const noexcept {
    return times_;
  }
  [[nodiscard]] const std::string& LastForm() const noexcept { return last_; }

 private:
  std::size_t depth_ = 0;
  std::size_t deepest_ = 0;
  std::map<std::string, std::uint64_t> times_;
  std::string last_;
};

}  // namespace quorvane::test
