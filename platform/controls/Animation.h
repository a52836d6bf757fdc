#pragma once

#include <string>
#include <utility>

#include "platform/controls/Control.h"

namespace quorvane {

/// A busy sign. It is told a file to play; a front end may show a sign of its own in its place.
class Animation : public Control {
 public:
  using Control::Control;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "Animation"; }

  void Open(std::string file) { Assign(file_, std::move(file)); }
  void Play() { Assign(playing_, true); }
  void Stop() { Assign(playing_, false); }

  [[nodiscard]] const std::string& File() const noexcept { return file_; }
  [[nodiscard]] bool Playing() const noexcept { return playing_; }

 private:
  std::string file_;
  bool playing_ = false;
};

}  // namespace quorvane
