#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace quorvane {

/// Tells whether a database is a school that the module can work on, and what is wrong with its
/// rows. Reads only. All texts are in Spanish, one a finding, ready to be shown.
class SchoolCheck {
 public:
  enum class For {
    Module,  ///< what the module itself needs
    Host,    ///< and what the desktop host signs its users in with
  };

  /// `connection` is open and outlives the check.
  explicit SchoolCheck(Connection& connection) : connection_(connection) {}

  /// Views in the place of tables, without reading any; missing tables and columns, and columns out
  /// of the place that the module writes them to. Empty for a database that is fit for use. A
  /// database without any of the tables is one finding. Error 0x80004005 when it can't be read at
  /// all.
  [[nodiscard]] std::vector<std::string> Structure(For whom) const;

  /// What the engine itself finds wrong with the pages of a school in a file; nothing on a server.
  [[nodiscard]] std::vector<std::string> Damage() const;

  /// Values that the module can't read, rows that point at nothing and rows that stand twice; to be
  /// called for a fit database alone.
  /// Error 0x80004005 when the database can't be read.
  [[nodiscard]] std::vector<std::string> Rows() const;

  /// What somebody has hung on a school's tables, and may keep the module from writing them; to be
  /// called for a fit database alone. No repair takes it away: it may be there on purpose.
  [[nodiscard]] std::vector<std::string> Strange() const;

 private:
  [[nodiscard]] std::int32_t Count(const std::string& select) const;
  void FindOrphans(std::vector<std::string>& findings) const;
  void FindDoubles(std::vector<std::string>& findings) const;

  Connection& connection_;
};

/// Error 0x80004005 with the first finding, and `before` in front of it, where an open database is
/// no school that is fit for the module.
void RequireSchool(Connection& school, const std::string& before = {});

}  // namespace quorvane
