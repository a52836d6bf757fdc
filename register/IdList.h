#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// The ids that a statement leaves out, parted by commas.
class IdList {
 public:
  void Add(std::int32_t id) {
    if (!text_.empty()) text_ += ',';
    text_ += std::to_string(id);
  }

  /// "0", which is nobody's id, when there are none: an empty list is no SQL.
  [[nodiscard]] std::string Text() const { return text_.empty() ? "0" : text_; }

 private:
  std::string text_;
};

}  // namespace quorvane
