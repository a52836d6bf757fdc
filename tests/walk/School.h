#pragma once

#include <functional>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/Prng.h"
#include "tests/walk/SchoolConnection.h"

namespace quorvane::test {

/// Where a school is on a server: two open connections to one database with all tables, as who
/// works on it and as its owner.
struct ServerPlace {
  Connection& teacher;
  Connection& owner;
};

/// A small school in memory or on a server, with the connections that a host has to it. It watches
/// the module's statements, and can have one of them fail.
class School {
 public:
  struct Sample {};

  /// A random one.
  explicit School(Prng& random);
  /// A random one in the place of what the database holds.
  School(Prng& random, const ServerPlace& place);
  /// The sample school, in which nothing is odd.
  explicit School(Sample which);
  School(School&&) = delete;
  ~School() = default;

  [[nodiscard]] SchoolConnection& Centro() noexcept { return centro_; }
  [[nodiscard]] SchoolConnection& Borrado() noexcept { return borrado_; }
  [[nodiscard]] SchoolConnection& Entrada() noexcept { return entrada_; }
  /// A connection that nobody watches: of another user, or of whoever looks at the tables.
  [[nodiscard]] Connection& Unwatched() noexcept { return owner_; }

  /// What a statement of the module leaves unordered comes as from a server.
  void OrderRows() noexcept;

  /// The flags are those of SQL Server.
  [[nodiscard]] bool SqlServer() const noexcept { return sqlServer_; }

  /// Other users, the host and time do something to it, between two screens: the statements that
  /// do.
  std::string Disturb(Prng& random);

  /// The statement of that number from now on fails before it reaches the engine; 0 for none.
  void FailStatement(int number) noexcept;
  [[nodiscard]] bool HasFailed() const noexcept { return failed_; }

  /// Whether the module has executed anything but reading since the last time that this was asked.
  [[nodiscard]] bool TakeWritten() noexcept;

  /// The module is about to execute a statement.
  std::function<void(const std::string& statement)> Executing;

 private:
  void Open();
  void Observe();
  void Script(const std::string& statements);
  void Watch(const std::string& statement);

  sqlite::SqliteConnection engine_{":memory:", "", sqlite::OpenMode::Create};
  Connection& teacher_ = engine_;
  Connection& owner_ = engine_;
  SchoolConnection centro_{"centro", teacher_};
  SchoolConnection borrado_{"borrado", teacher_};
  SchoolConnection entrada_{"entrada", teacher_};
  bool sqlServer_ = false;
  bool written_ = false;
  bool failed_ = false;
  int untilFailure_ = 0;
};

}  // namespace quorvane::test
