#include "tests/support/FormView.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace quorvane::test {
namespace {

using Json = nlohmann::json;

Json Control(const std::string& json, const std::string& name) {
  return Json::parse(json).at("controles").at(name);
}

}  // namespace

FormView::FormView(const ScriptResult& result, std::size_t before) {
  const auto views = result.Of("ver");
  if (views.size() <= before) throw std::runtime_error("it was not shown:\n" + result.Text());
  json_ = views.at(views.size() - 1 - before);
}

std::string FormView::Form() const { return Json::parse(json_).at("formulario"); }
std::string FormView::Title() const { return Json::parse(json_).at("titulo"); }
int FormView::Width() const { return Json::parse(json_).at("ancho"); }
int FormView::Height() const { return Json::parse(json_).at("alto"); }
bool FormView::Enabled(const std::string& name) const { return Control(json_, name).at("activo"); }
bool FormView::Visible(const std::string& name) const { return Control(json_, name).at("visible"); }
int FormView::Value(const std::string& name) const { return Control(json_, name).at("valor"); }
int FormView::Index(const std::string& name) const { return Control(json_, name).at("indice"); }
int FormView::FixedRows(const std::string& grid) const { return Control(json_, grid).at("fijas"); }
std::string FormView::Text(const std::string& name) const {
  return Control(json_, name).at("texto");
}
bool FormView::Has(const std::string& name) const {
  return Json::parse(json_).at("controles").contains(name);
}

std::vector<std::string> FormView::Entries(const std::string& list) const {
  std::vector<std::string> entries;
  const auto control = Control(json_, list);
  for (const auto& entry : control.at("entradas"))
    entries.push_back(entry.at(0).get<std::string>() + "=" +
                      std::to_string(entry.at(1).get<int>()));
  return entries;
}

std::vector<std::string> FormView::Tabs(const std::string& tabStrip) const {
  return Control(json_, tabStrip).at("pestanas");
}

std::vector<std::string> FormView::Cells(const std::string& grid) const {
  std::vector<std::string> rows;
  const auto control = Control(json_, grid);
  for (const auto& cells : control.at("celdas")) {
    std::string row;
    for (const auto& cell : cells)
      row += (&cell == &cells.front() ? "" : "|") + cell.get<std::string>();
    rows.push_back(row);
  }
  return rows;
}

std::vector<int> FormView::Widths(const std::string& grid) const {
  return Control(json_, grid).at("anchos");
}

}  // namespace quorvane::test
