#include "adapters/guion/player/JsonText.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "platform/text/VisibleText.h"

namespace quorvane::guion {
namespace {

using Json = nlohmann::ordered_json;

std::string Dump(const Json& json) {
  return VisibleJson(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

std::string JsonValue(const Value& value) {
  if (value.IsNull()) return "null";
  if (value.IsText()) return JsonText(value.Text());
  // JSON has no infinity; every other number's text is one of JSON's.
  return std::isfinite(value.Number()) ? value.Text() : "null";
}

}  // namespace

std::string JsonText(const std::string& text) { return Dump(text); }

std::string JsonRow(const Recordset& rows) {
  std::string row = "[";
  for (std::size_t i = 0; i < rows.Names().size(); ++i) {
    if (i > 0) row += ',';
    row += JsonValue(rows.Fields(i));
  }
  return row + "]";
}

std::string JsonList(const std::vector<Retivo::ListEntry>& list) {
  auto json = Json::array();
  for (const auto& entry : list) json.push_back(Json::array({entry.text, entry.data}));
  return Dump(json);
}

}  // namespace quorvane::guion
