#include "adapters/sqltext/FieldName.h"

namespace quorvane::sqltext {

std::string FieldName(std::string_view name, std::string_view statement) {
  const auto colon = name.rfind(':');
  if (colon == std::string_view::npos || statement.find(name) != std::string_view::npos)
    return std::string(name);
  const auto number = name.substr(colon + 1);
  const auto numbered =
      !number.empty() && number.find_first_not_of("0123456789") == std::string_view::npos;
  return std::string(numbered ? name.substr(0, colon) : name);
}

}  // namespace quorvane::sqltext
