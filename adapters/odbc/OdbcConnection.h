#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "adapters/sqltext/Dialect.h"
#include "platform/data/Connection.h"

namespace quorvane::odbc {

class DriverConnection;

/// A connection to a school through an ODBC driver. Made closed; `Open` may throw, the constructor
/// doesn't:
///
///   OdbcConnection centro("Driver=FreeTDS;Server=escuela;Database=Centro;UID=zendria;PWD=...",
///                         "centro");
///   centro.Open();
///   auto rows = centro.Execute("SELECT IDAlumno FROM Alumno");
///
/// The text of a statement reaches the driver as the engine that the driver names takes it. Each
/// statement is in effect when `Execute` returns. What the driver does otherwise than the module
/// needs is set by what the string is completed with (`Completed`). `Open` refuses what isn't
/// supported (`RequireSupported`). All failures,
/// of `Open` too, are error 0x80004005 with the driver's state, number and text; a lost connection
/// is told as such, and is closed then. Texts are UTF-8, dates `yyyy/mm/dd`, a true bit -1. To be
/// used by one thread at a time.
class OdbcConnection : public Connection {
 public:
  /// `name` as in `Connection`: empty for one that is not traced.
  OdbcConnection(std::string connectionString, std::string name);
  ~OdbcConnection() override;
  OdbcConnection(const OdbcConnection&) = delete;
  OdbcConnection& operator=(const OdbcConnection&) = delete;
  OdbcConnection(OdbcConnection&&) = delete;
  OdbcConnection& operator=(OdbcConnection&&) = delete;

  void Open() override;
  void Close() override;
  /// False as well once a statement has found the connection lost.
  [[nodiscard]] bool IsOpen() const override;
  /// The server's name; of a file database its file. As the string has it, or the driver once it
  /// has been open.
  [[nodiscard]] std::string DataSource() const override;

  /// What the driver says that it reaches; unknown before the first `Open`.
  [[nodiscard]] sqltext::Engine ReachedEngine() const noexcept { return engine_; }

  /// The server's date as "dd/mm/yyyy"; empty where the engine has no server. Neither traced nor
  /// observed. Error 3704 on a closed connection.
  std::string ServerDate();

 protected:
  Recordset Run(const std::string& statement) override;

 private:
  void Connect(sqltext::Engine expected);
  void RequireSupport();
  void Forget();
  Recordset RunText(const std::string& text);

  std::string text_;
  std::string dataSource_;
  sqltext::Engine engine_ = sqltext::Engine::Unknown;
  std::chrono::milliseconds busyWait_{0};         ///< of the file database's engine alone
  std::unique_ptr<DriverConnection> connection_;  ///< null while closed
};

}  // namespace quorvane::odbc
