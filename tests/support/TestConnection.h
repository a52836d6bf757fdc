#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "apps/quorvane-guion/PlayOptions.h"
#include "platform/data/Connection.h"

namespace quorvane::test {

/// Whether the tests reach their schools through ODBC: QUORVANE_PRUEBAS_ODBC=1 in the environment,
/// or a server (`OnServer`).
/// The module must not see a difference, so the same tests run either way.
bool ThroughOdbc();

/// How far a test goes on that lets each `step`-th statement of a session fail. On a file each gets
/// its turn. What refuses it stands before the adapter, so that through ODBC one in seven of them
/// does; a server that fails by itself is tests/servidor/faults.
std::size_t FailureStride(std::size_t step);

/// The connection string of a test's school, which need not survive the machine.
std::string OdbcString(const std::string& path);

/// The school to play a script on, and the database with `Usuario` unless that is empty.
void PlayOn(guion::PlayOptions& options, const std::string& path, const std::string& entrada);

/// How the engine's error begins for what the file database tells so: through a driver its state
/// stands before it, and a server has its own words for a table that isn't there.
std::string EngineText(const std::string& text);

/// A connection for the module to a school in a file, by the adapter that the tests run on.
class TestConnection : public Connection {
 public:
  TestConnection(const std::string& path, const std::string& name);

  void Open() override { inner_->Open(); }
  void Close() override { inner_->Close(); }
  [[nodiscard]] bool IsOpen() const override { return inner_->IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return inner_->DataSource(); }

 protected:
  Recordset Run(const std::string& statement) override { return inner_->Execute(statement); }

 private:
  std::unique_ptr<Connection> inner_;  ///< without a name: this one is traced
};

}  // namespace quorvane::test
