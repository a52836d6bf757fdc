#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "apps/escuela/CopiedTable.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/TableReader.h"
#include "apps/escuela/Transaction.h"

namespace quorvane {

/// A school that is copied, as it is at one moment, whoever works on it meanwhile. Reads only.
class CopyOrigin {
 public:
  /// Opens it. Error 0x80004005 in Spanish when that fails, or when it is no school that is fit for
  /// the module.
  explicit CopyOrigin(const SchoolAddress& address);
  ~CopyOrigin();
  CopyOrigin(const CopyOrigin&) = delete;
  CopyOrigin& operator=(const CopyOrigin&) = delete;
  CopyOrigin(CopyOrigin&&) = delete;
  CopyOrigin& operator=(CopyOrigin&&) = delete;

  [[nodiscard]] const std::vector<CopiedTable>& Tables() const noexcept { return tables_; }
  /// Tables of another application's but the one of the passwords, and columns as
  /// "Alumno.Telefono".
  [[nodiscard]] const std::vector<std::string>& Others() const noexcept { return others_; }
  /// Whether all tables are read as of one moment: a SQL Server has to allow it.
  [[nodiscard]] bool OneMoment() const noexcept { return oneMoment_; }

  /// What is kept of the users' passwords, by their number.
  [[nodiscard]] std::map<std::int32_t, std::string> Passwords() const;
  [[nodiscard]] std::size_t CountRows(const CopiedTable& table) const;
  /// One at a time.
  [[nodiscard]] std::unique_ptr<TableReader> Read(const CopiedTable& table) const;

 private:
  void FindOthers();
  void BeginSnapshot();

  std::unique_ptr<Connection> school_;
  sqltext::Engine engine_;
  std::vector<CopiedTable> tables_;
  std::vector<std::string> others_;
  bool oneMoment_ = true;
  std::unique_ptr<Transaction> moment_;
};

}  // namespace quorvane
