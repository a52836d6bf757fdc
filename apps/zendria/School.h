#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "apps/escuela/PublicationNotes.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/zendria/Centre.h"
#include "apps/zendria/SchoolPlace.h"
#include "apps/zendria/User.h"
#include "platform/data/Connection.h"

namespace quorvane::zendria {

/// An open school, in a file or on a server, with the three connections that the module works on.
/// They live as long as the school; the module opens and closes `Entrada` itself. On a server
/// `Borrado`, which no screen uses, and `Own` are made by their first statement.
class School {
 public:
  /// Throws SchoolError for a file that is missing, unreadable, empty or no database, a server that
  /// can't be reached, and what is no school.
  explicit School(SchoolAddress address);

  [[nodiscard]] const SchoolAddress& Address() const noexcept { return address_; }
  /// The file, or the connection string without any password, as it may be shown.
  [[nodiscard]] QString File() const { return QString::fromStdString(address_.Shown()); }
  /// As the list of recent schools keeps it.
  [[nodiscard]] QString Place() const { return PlaceOf(address_); }
  /// The file's name without its ending or the database's, as a heading shows it.
  [[nodiscard]] QString Name() const { return SchoolName(address_); }
  /// Whether the engine is SQL Server, where flags are compared with another number.
  [[nodiscard]] bool SqlServer() const { return ReachesSqlServer(*centro_); }
  /// By their ids; a session is in one of them.
  [[nodiscard]] const std::vector<Centre>& Centres() const noexcept { return centres_; }

  /// In Spanish order of their names.
  [[nodiscard]] const std::vector<User>& Users() const noexcept { return users_; }
  [[nodiscard]] std::optional<User> FindUser(std::int32_t id) const;

  /// Whether users of this school have passwords: then nobody comes in without one. Asked anew each
  /// time; a runtime error when that fails.
  [[nodiscard]] bool HasPasswords() { return UserPasswords(*own_).Any(); }
  /// Whether anybody may sign in as anybody: no server's login tells who it is, and nobody has a
  /// password. Asked anew each time; what was known before where that fails.
  [[nodiscard]] bool IsOpenToAll();
  /// Who has that name and password; none when they aren't somebody's. As `UserPasswords::Owner`.
  [[nodiscard]] std::optional<User> SignIn(const QString& name, const QString& password);
  /// The name that the server knows whoever is connected by; none of a file.
  [[nodiscard]] const std::optional<QString>& Login() const noexcept { return login_; }

  [[nodiscard]] Connection& Centro() noexcept { return *centro_; }
  [[nodiscard]] Connection& Borrado() noexcept { return *borrado_; }
  [[nodiscard]] Connection& Entrada() noexcept { return *entrada_; }

  /// For what the host asks for itself: not traced and not observed.
  [[nodiscard]] Connection& Own() noexcept { return *own_; }

  [[nodiscard]] bool IsOnServer() const noexcept { return address_.IsOdbc(); }
  /// Where its programs note which publications they have: beside a file; of a server's school, in
  /// a folder of the user's own, which is made.
  [[nodiscard]] PublicationNotes Notes(const QString& dataFolder) const;
  /// Another connection, that doesn't know what failed on the others. Not traced, and it waits but
  /// a moment for who writes. A runtime error when that fails, or when the school's file isn't in
  /// its place any more: the one that may be there now is not touched.
  [[nodiscard]] std::unique_ptr<Connection> OpenAnew() const;

  /// The log of this school's file where another file has taken its place, which the log would ruin
  /// as soon as that is opened; empty where nothing is in the way.
  [[nodiscard]] QString LogOfAnother() const;

  /// Before a screen: connects again where the connection was lost. A runtime error when that
  /// fails, or when the school's file isn't in its place any more.
  void Reopen();

  /// Gives back what a server need not hold while nobody asks for anything.
  void Rest();

  /// Told of each statement on any of the module's three.
  void Observe(const Connection::Observer& observer);

 private:
  void CheckTables();
  void ReadUsers();
  void ReadLogin();

  SchoolAddress address_;
  std::unique_ptr<Connection> centro_;
  std::unique_ptr<Connection> borrado_;
  std::unique_ptr<Connection> entrada_;
  std::unique_ptr<Connection> own_;
  std::vector<User> users_;
  std::vector<Centre> centres_;
  std::optional<QString> login_;
  bool openToAll_ = false;
};

}  // namespace quorvane::zendria
