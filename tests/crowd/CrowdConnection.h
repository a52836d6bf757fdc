#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/SchoolAddress.h"
#include "tests/crowd/CrowdOptions.h"
#include "tests/crowd/FaultCount.h"
#include "tests/crowd/Figures.h"
#include "tests/crowd/Journal.h"

namespace quorvane::test {

/// One of a process's connections to the school. It times each statement, writes into the journal
/// what has been written, and before a form gives its locks back looks whether what it has saved is
/// still there.
class CrowdConnection : public Connection {
 public:
  /// `faults`, `journal` and `figures` outlive the connection.
  CrowdConnection(const SchoolAddress& school, std::string name, int process, Fault fault,
                  FaultCount& faults, Journal& journal, Figures& figures);

  void Open() override;
  void Close() override { engine_->Close(); }
  [[nodiscard]] bool IsOpen() const override { return engine_->IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return engine_->DataSource(); }

  /// A grade form or the register is about to be loaded.
  void BeginForm(const std::string& name, bool entersGrades);
  /// Removes, from outside the forms, what one that is gone had taken and not given back.
  void RemoveLeftovers();
  /// The publication of the form that is open; 0 without one.
  [[nodiscard]] int Publication() const noexcept { return publication_; }

 protected:
  Recordset Run(const std::string& statement) override;

 private:
  [[nodiscard]] sqlite::SqliteConnection& File() const {
    return dynamic_cast<sqlite::SqliteConnection&>(*engine_);
  }
  Recordset Time(const std::string& statement);
  /// How many rows it has written.
  std::int64_t Write(const std::string& statement);
  void Note(const std::string& statement);
  void NoteLoad(const std::string& statement);
  /// False for a statement that is to be executed; of another it tells what a fault tells.
  [[nodiscard]] bool Swallow(const std::string& statement);
  void CompareSaved();

  bool onServer_;
  std::unique_ptr<Connection> engine_;
  int process_;
  Fault fault_;
  FaultCount& faults_;
  Journal& journal_;
  Figures& figures_;
  std::vector<std::string> saved_;  ///< the statements that gave grades, of the form that is open
  bool entersGrades_ = false;
  bool loads_ = false;  ///< the form is open and has read nothing yet
  bool hasSaved_ = false;
  int publication_ = 0;  ///< of the form that is open
};

}  // namespace quorvane::test
