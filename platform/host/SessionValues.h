#pragma once

#include <map>
#include <string>

#include "platform/host/SessionObject.h"

namespace quorvane {

/// A session object whose members the host sets one by one.
class SessionValues : public SessionObject {
 public:
  void Set(const std::string& member, SessionMember value);
  void Remove(const std::string& member);
  [[nodiscard]] SessionMember Get(const std::string& member) const override;

 private:
  std::map<std::string, SessionMember> members_;
};

}  // namespace quorvane
