#include "platform/host/SessionValues.h"

#include <utility>

#include "platform/RuntimeError.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {

void SessionValues::Set(const std::string& member, SessionMember value) {
  members_[AsciiLower(member)] = std::move(value);
}

void SessionValues::Remove(const std::string& member) { members_.erase(AsciiLower(member)); }

SessionMember SessionValues::Get(const std::string& member) const {
  const auto found = members_.find(AsciiLower(member));
  if (found == members_.end())
    throw RuntimeError(ErrorNumber::MissingMember, "La sesión no tiene el miembro " + member);
  return found->second;
}

}  // namespace quorvane
