#pragma once

#include <string>
#include <vector>

#include "platform/host/SessionValues.h"

namespace quorvane::test {

/// A session that notes which of its members are read.
class RecordingSession : public SessionValues {
 public:
  [[nodiscard]] SessionMember Get(const std::string& member) const override {
    read.push_back(member);
    return SessionValues::Get(member);
  }

  mutable std::vector<std::string> read;
};

}  // namespace quorvane::test
