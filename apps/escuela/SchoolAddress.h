#pragma once

#include <memory>
#include <optional>
#include <string>

#include "adapters/sqltext/Dialect.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// Where a school is: in a file, or behind an ODBC connection string.
class SchoolAddress {
 public:
  enum class Access {
    ReadOnly,  ///< of a file; what an ODBC login may do is the server's to say
    ReadWrite,
  };

  static SchoolAddress File(std::string path) { return {std::move(path), false}; }
  static SchoolAddress Odbc(std::string connectionString) {
    return {std::move(connectionString), true};
  }

  [[nodiscard]] bool IsOdbc() const noexcept { return odbc_; }
  [[nodiscard]] const std::string& Text() const noexcept { return text_; }
  /// What may be shown and kept: the file, or the string without any password.
  [[nodiscard]] std::string Shown() const;
  /// Whether a connection string was given where a file's name belongs.
  [[nodiscard]] bool IsMisplaced() const;
  /// What to tell the user then: the string may hold a password, and isn't repeated.
  static constexpr auto kMisplaced =
      "Donde va un fichero se ha dado una cadena de conexión, que no se repite aquí por si lleva "
      "una contraseña: désela a --odbc";
  /// Error 0x80004005 with that text for one.
  void RequireInPlace() const;

  /// Whether it is a file that every user of the machine may read.
  [[nodiscard]] bool EverybodyReads() const;

  /// A connection that is still closed. `name` as in `Connection`.
  [[nodiscard]] std::unique_ptr<Connection> Connect(const std::string& name,
                                                    Access access = Access::ReadWrite) const;
  /// One that counts as open and is hardly ever used: on a server it is made by its first
  /// statement; of a file it is open. Errors as of `Open`.
  [[nodiscard]] std::unique_ptr<Connection> StandBy(const std::string& name) const;
  /// One that is open. Error 0x80004005 with a text in Spanish when that fails.
  [[nodiscard]] std::unique_ptr<Connection> Open(const std::string& name,
                                                 Access access = Access::ReadWrite) const;

 private:
  SchoolAddress(std::string text, bool odbc) : text_(std::move(text)), odbc_(odbc) {}

  std::string text_;
  bool odbc_;
};

/// The engine that an open connection reaches, as its driver names it. One that stands by is opened
/// for that, with its errors.
sqltext::Engine EngineReached(Connection& connection);

/// Whether an open connection says that it reaches SQL Server: statements on flags differ there.
bool ReachesSqlServer(Connection& connection);

/// The date that decides on a server, which isn't each computer's own, as "dd/mm/yyyy"; empty for a
/// school in a file. In no trace. The engine's error when it can't be asked.
std::string ServerDate(Connection& connection);

/// The columns of a table of an open database; none when it has no such table. Of one that is there
/// and can't be read, the engine's error.
std::optional<FieldNames> ColumnsOf(Connection& connection, const std::string& table);
/// Whether it has that table; errors alike.
bool HasTable(Connection& connection, const std::string& table);

}  // namespace quorvane
