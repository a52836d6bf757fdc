#pragma once

#include <string>
#include <vector>

#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"

namespace quorvane::test {

/// The rows of a statement as `PlainDatabase::Run` gives them.
inline std::vector<std::string> RunRows(Connection& connection, const std::string& statement) {
  std::vector<std::string> rows;
  try {
    auto recordset = connection.Execute(statement);
    if (!recordset.IsOpen()) return rows;
    for (; !recordset.Eof(); recordset.MoveNext()) {
      std::string row;
      for (std::size_t i = 0; i < recordset.Names().size(); ++i) {
        const auto& value = recordset.Fields(i);
        if (i > 0) row += '|';
        row += value.IsNull() ? "NULL" : value.Text();
      }
      rows.push_back(row);
    }
  } catch (const RuntimeError& error) {
    rows = {"error " + error.Description()};
  }
  return rows;
}

}  // namespace quorvane::test
