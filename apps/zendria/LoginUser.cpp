#include "apps/zendria/LoginUser.h"

#include <algorithm>

#include "apps/zendria/TextFolding.h"

namespace quorvane::zendria {
namespace {

template <typename Fits>
std::optional<User> Only(const std::vector<User>& users, Fits fits) {
  const auto first = std::find_if(users.begin(), users.end(), fits);
  if (first == users.end() || std::any_of(first + 1, users.end(), fits)) return std::nullopt;
  return *first;
}

std::optional<User> Named(const std::vector<User>& users, const QString& name) {
  if (name.isEmpty()) return std::nullopt;
  auto exact = Only(users, [&name](const User& user) { return user.name.trimmed() == name; });
  if (exact) return exact;
  return Only(users, [folded = Folded(name)](const User& user) {
    return Folded(user.name.trimmed()) == folded;
  });
}

}  // namespace

std::optional<User> UserOfLogin(const std::vector<User>& users, const QString& login) {
  const auto name = login.trimmed();
  if (auto whole = Named(users, name)) return whole;
  const auto domain = name.lastIndexOf(u'\\');
  return domain < 0 ? std::nullopt : Named(users, name.mid(domain + 1));
}

}  // namespace quorvane::zendria
