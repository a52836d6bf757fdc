#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "apps/escuela/SchoolAddress.h"
#include "apps/zendria/Centre.h"
#include "apps/zendria/School.h"
#include "apps/zendria/User.h"

class QWidget;

namespace quorvane::zendria {

class Preferences;

/// Someone who has signed in to an open school.
struct Entrance {
  std::unique_ptr<School> school;
  User user;
  std::optional<Centre> centre;  ///< none in a school that names none
};

/// The way into a school: asks where it is, for a password, who works and in which centre. Each
/// question may come to nothing, by the user's will or for a reason that he was told.
class SchoolDoor {
 public:
  /// The questions stand before `window`. Both outlive the door.
  SchoolDoor(QWidget& window, Preferences& preferences)
      : window_(window), preferences_(preferences) {}

  /// Opens the school at that place, see `AddressOf`, for that user, or for the one who is chosen.
  /// A password that the place lacks is asked for.
  std::optional<Entrance> Open(const QString& place, std::optional<std::int32_t> user);
  /// Opens a server's school; the user completes that connection string, or without one the last.
  std::optional<Entrance> Connect(const QString& connectionString,
                                  std::optional<std::int32_t> user);
  /// A file of the user's choice; empty for none.
  QString AskForFile();
  /// Asks who works, and in which centre, beginning with `centre`; none leaves that as it is. A
  /// server's login is a user, and only an administrator may choose another; in a school that has
  /// passwords one is asked for; else all may be chosen. `user` is taken unasked as far as that
  /// goes.
  std::optional<User> SignIn(School& school, std::optional<Centre>& centre,
                             std::optional<std::int32_t> user = std::nullopt);

 private:
  std::optional<Entrance> Enter(const SchoolAddress& address, std::optional<std::int32_t> user);
  std::optional<Entrance> Enter(std::unique_ptr<School> school, std::optional<std::int32_t> user);
  std::optional<User> ByLogin(const School& school, std::optional<Centre>& centre,
                              std::optional<std::int32_t> user);
  std::optional<User> ByPassword(School& school, std::optional<Centre>& centre,
                                 std::optional<std::int32_t> user);
  std::optional<User> Choose(const School& school, std::vector<User> users,
                             std::optional<std::int32_t> begin, std::optional<Centre>& centre);
  std::optional<User> Find(const School& school, std::int32_t user);
  void Refuse(const QString& why);

  QWidget& window_;
  Preferences& preferences_;
  QString refused_;  // the connection string, without a password, that was given up after a refusal
};

}  // namespace quorvane::zendria
