#pragma once

#include <QString>
#include <cstdint>

namespace quorvane::zendria {

/// Someone who may sign in to a school.
struct User {
  std::int32_t id = 0;
  QString name;
  std::int32_t profile = 0;  ///< 0 is the unrestricted profile
  bool administrator = false;

  /// The profile's number and what it lets the user do, in a few words.
  [[nodiscard]] QString ProfileText() const;
};

}  // namespace quorvane::zendria
