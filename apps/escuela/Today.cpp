#include "apps/escuela/Today.h"

#include <ctime>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

std::string Today(Connection& school) {
  // dd/mm/yyyy
  if (const auto server = ServerDate(school); server.size() == 10)
    return server.substr(6) + "/" + server.substr(3, 2) + "/" + server.substr(0, 2);
  const auto now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[16];
  return {text, std::strftime(text, sizeof text, "%Y/%m/%d", &local)};
}

std::string PrintedToday(Connection& school) {
  const auto date = Today(school);
  return date.substr(8) + "/" + date.substr(5, 2) + "/" + date.substr(0, 4);
}

}  // namespace quorvane
