#pragma once

#include <functional>
#include <string>
#include <utility>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqltext/RowOrder.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/Prng.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "tests/walk/Disturbance.h"
#include "tests/walk/RandomSchool.h"
#include "tests/walk/Statement.h"

namespace quorvane::test {

/// One of the connections that the module is handed. All of them reach one school, which may live
/// in memory and would be gone if one of them really closed it.
class SchoolConnection : public Connection {
 public:
  /// `school` is open and outlives the connection.
  SchoolConnection(std::string name, Connection& school)
      : Connection(std::move(name)), school_(school) {}

  /// Gives the rows that a statement leaves unordered as a server does.
  void OrderRows() noexcept { ordered_ = true; }

  void Open() override { open_ = true; }
  void Close() override { open_ = false; }
  [[nodiscard]] bool IsOpen() const override { return open_; }
  [[nodiscard]] std::string DataSource() const override { return "escuela"; }

 protected:
  Recordset Run(const std::string& statement) override {
    return school_.Execute(ordered_ ? sqltext::OrderAsInAFile(statement) : statement);
  }

 private:
  Connection& school_;
  bool ordered_ = false;
  bool open_ = true;
};

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
  explicit School(Prng& random) : sqlServer_(random.Chance(30)) {
    Open();
    Script(RandomSchool(random, sqlServer_).Script());
  }
  /// A random one in the place of what the database holds.
  School(Prng& random, const ServerPlace& place)
      : teacher_(place.teacher), owner_(place.owner), sqlServer_(random.Chance(30)) {
    Observe();
    std::string script;
    for (const auto& table : SchoolTables()) script += "DELETE FROM " + table.name + ";";
    Script(script + RandomSchool(random, sqlServer_).Script());
  }
  /// The sample school, in which nothing is odd.
  explicit School(Sample /*which*/) {
    Open();
    DemoSchool(engine_).Build();
  }
  School(School&&) = delete;
  ~School() = default;

  [[nodiscard]] SchoolConnection& Centro() noexcept { return centro_; }
  [[nodiscard]] SchoolConnection& Borrado() noexcept { return borrado_; }
  [[nodiscard]] SchoolConnection& Entrada() noexcept { return entrada_; }
  /// A connection that nobody watches: of another user, or of whoever looks at the tables.
  [[nodiscard]] Connection& Unwatched() noexcept { return owner_; }

  /// What a statement of the module leaves unordered comes as from a server.
  void OrderRows() noexcept {
    for (auto* connection : {&centro_, &borrado_, &entrada_}) connection->OrderRows();
  }

  /// The flags are those of SQL Server.
  [[nodiscard]] bool SqlServer() const noexcept { return sqlServer_; }

  /// Other users, the host and time do something to it, between two screens: the statements that
  /// do.
  std::string Disturb(Prng& random) {
    auto statements = RandomDisturbance(random);
    Script(statements);
    return statements;
  }

  /// The statement of that number from now on fails before it reaches the engine; 0 for none.
  void FailStatement(int number) noexcept {
    untilFailure_ = number;
    failed_ = false;
  }
  [[nodiscard]] bool HasFailed() const noexcept { return failed_; }

  /// Whether the module has executed anything but reading since the last time that this was asked.
  [[nodiscard]] bool TakeWritten() noexcept { return std::exchange(written_, false); }

  /// The module is about to execute a statement.
  std::function<void(const std::string& statement)> Executing;

 private:
  void Open() {
    engine_.Open();
    engine_.ExecuteScript(std::string(SqliteSchema()));
    Observe();
  }

  void Observe() {
    for (auto* connection : {&centro_, &borrado_, &entrada_})
      connection->Observe([this](const Connection& /*watched*/, const std::string& statement) {
        Watch(statement);
      });
  }

  void Watch(const std::string& statement) {
    if (untilFailure_ > 0 && --untilFailure_ == 0) {
      failed_ = true;
      throw RuntimeError(ErrorNumber::StatementFailed, "fallo");
    }
    if (!Reads(statement)) written_ = true;
    if (Executing) Executing(statement);
  }

  void Script(const std::string& statements) {
    // A driver takes several at once; a file's connection only where it is told.
    if (engine_.IsOpen())
      engine_.ExecuteScript(statements);
    else
      owner_.Execute(statements);
  }

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
