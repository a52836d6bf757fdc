#include "tests/support/ServerRights.h"

#include <fstream>
#include <stdexcept>

namespace quorvane::test {

std::vector<std::string> ServerRights() {
  std::ifstream document(QUORVANE_SERVER_DOCUMENT);
  std::vector<std::string> rights;
  for (std::string line; std::getline(document, line);)
    if (line.starts_with("GRANT ") && line.find(" ON ") != std::string::npos &&
        line.find(" ON dbo.") == std::string::npos && line.find("DATABASE") == std::string::npos)
      rights.push_back(line);
  if (rights.empty()) throw std::runtime_error("no rights in " QUORVANE_SERVER_DOCUMENT);
  return rights;
}

}  // namespace quorvane::test
