#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "apps/zendria/User.h"

namespace quorvane::zendria {

/// The user who a server's login is, by his name: the one of just that name, else the only one of
/// it without regard to case and accents, for logins are often written without them. Of a Windows
/// account the name behind its domain counts too. None when nobody is, or when it can't be told
/// who.
std::optional<User> UserOfLogin(const std::vector<User>& users, const QString& login);

}  // namespace quorvane::zendria
