#include "platform/data/SqlList.h"

namespace quorvane {

std::string FillSql(std::string_view text, std::initializer_list<std::string> places) {
  std::string filled;
  for (const auto& place : places) {
    const auto at = text.find("{}");
    filled.append(text.substr(0, at)).append(place);
    text.remove_prefix(at + 2);
  }
  return filled.append(text);
}

}  // namespace quorvane
