#pragma once

#include <cstdlib>
#include <fstream>
#include <string>

#include "tests/support/TempFolder.h"

namespace quorvane::test {

/// Data sources of the user's, while it lives. Of the whole process.
class DataSources {
 public:
  /// `text` is what the driver manager's file of them holds.
  explicit DataSources(const std::string& text) {
    const auto path = folder_ / "odbc.ini";
    std::ofstream(path) << text;
    setenv("ODBCINI", path.c_str(), 1);
  }
  ~DataSources() { unsetenv("ODBCINI"); }
  DataSources(DataSources&&) = delete;

 private:
  TempFolder folder_;
};

}  // namespace quorvane::test
