#pragma once

#include <memory>

namespace quorvane {
class SessionObject;
}

namespace quorvane::zendria {

class School;
struct User;

/// The session that the module is handed: all the members that it reads. `school` has to live as
/// long as the module uses the session. `active` tells whether the school year can be changed.
std::shared_ptr<const SessionObject> MakeSession(School& school, const User& user, bool active);

}  // namespace quorvane::zendria
