#pragma once

#include <string>
#include <variant>

#include "platform/data/Value.h"

namespace quorvane {

class Connection;

/// What a member of the session object holds: a plain value, or a connection of the host's.
using SessionMember = std::variant<Value, Connection*>;

/// The session that the host hands in: an object of any class that answers to the members' names.
class SessionObject {
 public:
  SessionObject() = default;
  virtual ~SessionObject() = default;
  SessionObject(const SessionObject&) = delete;
  SessionObject& operator=(const SessionObject&) = delete;
  SessionObject(SessionObject&&) = delete;
  SessionObject& operator=(SessionObject&&) = delete;

  /// The member of that name, matched without regard to case; error 438 when there is none.
  [[nodiscard]] virtual SessionMember Get(const std::string& member) const = 0;
};

}  // namespace quorvane
