#pragma once

#include <memory>
#include <optional>

#include "apps/zendria/Centre.h"

namespace quorvane {
class SessionObject;
}

namespace quorvane::zendria {

class School;
struct User;

/// The session that the module is handed: all the members that it reads. `school` has to live as
/// long as the module uses the session. `active` tells whether the school year can be changed.
/// `centre` is none in a school that names none; the module then finds no kinds of teaching.
std::shared_ptr<const SessionObject> MakeSession(School& school, const User& user,
                                                 const std::optional<Centre>& centre, bool active);

}  // namespace quorvane::zendria
