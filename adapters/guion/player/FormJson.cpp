#include "adapters/guion/player/FormJson.h"

#include <nlohmann/json.hpp>

#include "platform/controls/CheckBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/ItemList.h"
#include "platform/controls/Label.h"
#include "platform/controls/MSFlexGrid.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "platform/text/VisibleText.h"

namespace quorvane::guion {
namespace {

using Json = nlohmann::ordered_json;

void Describe(Json& json, const ItemList& list) {
  json["indice"] = list.ListIndex();
  auto& entries = json["entradas"] = Json::array();
  for (int i = 0; i < list.ListCount(); ++i)
    entries.push_back(Json::array({list.List(i), list.ItemData(i)}));
}

void Describe(Json& json, const TabStrip& tabs) {
  auto& captions = json["pestanas"] = Json::array();
  for (int i = 1; i <= tabs.TabCount(); ++i) captions.push_back(tabs.TabCaption(i));
  json["indice"] = tabs.SelectedTab();
}

Json RowCells(const Grid& grid, int row) {
  auto cells = Json::array();
  for (int col = 0; col < grid.Cols(); ++col) cells.push_back(grid.TextMatrix(row, col));
  return cells;
}

void Describe(Json& json, const Grid& grid) {
  json["fila"] = grid.Row();
  json["columna"] = grid.Col();
  json["fijas"] = grid.FixedRows();
  auto& widths = json["anchos"] = Json::array();
  for (int col = 0; col < grid.Cols(); ++col) widths.push_back(grid.ColWidth(col));
  auto& rows = json["celdas"] = Json::array();
  for (int row = 0; row < grid.Rows(); ++row) rows.push_back(RowCells(grid, row));
  const auto* const flexGrid = dynamic_cast<const MSFlexGrid*>(&grid);
  if (flexGrid == nullptr) return;
  auto& data = json["datos"] = Json::array();
  for (int row = 0; row < grid.Rows(); ++row) data.push_back(flexGrid->RowData(row));
}

Json Describe(const Control& control) {
  Json json;
  json["tipo"] = control.Kind();
  json["visible"] = control.Visible();
  json["activo"] = control.Enabled();
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    json["texto"] = label->Caption();
  } else if (const auto* button = dynamic_cast<const CommandButton*>(&control)) {
    json["texto"] = button->Caption();
  } else if (const auto* frame = dynamic_cast<const Frame*>(&control)) {
    json["texto"] = frame->Caption();
  } else if (const auto* textBox = dynamic_cast<const TextBox*>(&control)) {
    json["texto"] = textBox->Text();
  } else if (const auto* checkBox = dynamic_cast<const CheckBox*>(&control)) {
    json["texto"] = checkBox->Caption();
    json["valor"] = checkBox->Value();
  } else if (const auto* list = dynamic_cast<const ItemList*>(&control)) {
    Describe(json, *list);
  } else if (const auto* tabs = dynamic_cast<const TabStrip*>(&control)) {
    Describe(json, *tabs);
  } else if (const auto* grid = dynamic_cast<const Grid*>(&control)) {
    Describe(json, *grid);
  }
  return json;
}

}  // namespace

std::string FormJson(const Form& form) {
  Json json;
  json["formulario"] = form.Name();
  json["titulo"] = form.Caption();
  json["ancho"] = form.Width();
  json["alto"] = form.Height();
  auto& controls = json["controles"] = Json::object();
  for (const auto* control : form.Controls()) controls[control->Name()] = Describe(*control);
  return VisibleJson(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

}  // namespace quorvane::guion
