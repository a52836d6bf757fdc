#pragma once

#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"

/// A host's own connection, on top of one that is there: it counts, and can break.
class CountedConnection : public quorvane::Connection {
 public:
  CountedConnection(const std::string& path, const std::string& name)
      : Connection(name), school_(path, "") {}

  void Open() override { school_.Open(); }
  void Close() override { school_.Close(); }
  [[nodiscard]] bool IsOpen() const override { return school_.IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return "anfitrion"; }

  int count = 0;
  bool broken = false;

 protected:
  quorvane::Recordset Run(const std::string& statement) override {
    ++count;
    if (broken)
      throw quorvane::RuntimeError(quorvane::ErrorNumber::StatementFailed, "cable suelto");
    return school_.Execute(statement);
  }

 private:
  quorvane::sqlite::SqliteConnection school_;
};
