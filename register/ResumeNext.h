#pragma once

#include <cstdint>
#include <string>

#include "platform/RuntimeError.h"

namespace quorvane {

/// Runs steps that may fail one after the other: a step that fails is given up, the next one runs
/// all the same, and the last failure is kept until it is cleared.
class ResumeNext {
 public:
  template <class Step>
  void Try(const Step& step) {
    try {
      step();
    } catch (const RuntimeError& failure) {
      number_ = failure.Number();
      description_ = failure.Description();
    }
  }

  [[nodiscard]] std::int32_t Number() const noexcept { return number_; }  ///< 0 for no failure
  [[nodiscard]] const std::string& Description() const noexcept { return description_; }

  void Clear() { *this = ResumeNext(); }

 private:
  std::int32_t number_ = 0;
  std::string description_;
};

}  // namespace quorvane
