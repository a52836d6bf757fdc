#include <nlohmann/json.hpp>

#include "tests/register/RegisterModel.h"
#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

/// The matrix as the model tells it: the row data, then the marks of each row, which stand between
/// the subject and its order.
std::string Matrix(const std::string& view) {
  const auto grid = nlohmann::json::parse(view).at("controles").at("msgMaterias");
  std::string marks;
  for (const auto& row : grid.at("celdas")) {
    if (row == grid.at("celdas").front()) continue;
    for (std::size_t i = 1; i + 1 < row.size(); ++i) marks += "," + row[i].dump();
    marks += ";";
  }
  return grid.at("datos").dump() + " " + marks;
}

class RegisterWalkTest : public testing::TestWithParam<unsigned> {};

TEST_P(RegisterWalkTest, WhatIsSavedIsWhatTheUserSeesWhenHeComesBack) {
  const SmallSchool school;
  RegisterModel model(GetParam());
  for (int session = 0; session < 12; ++session) {
    const auto script = model.Session();
    const auto run = RunScript(school, script);
    ASSERT_EQ(run.status, 0) << run.Text();
    ASSERT_THAT(run.Of("rechazo"), IsEmpty()) << script;
    ASSERT_THAT(run.Of("mensaje"), IsEmpty()) << script;
    ASSERT_EQ(RegisterModel::Stored(school), model.Expected()) << script;

    auto look = kOpen;
    const auto matrices = model.ExpectedMatrices();
    for (std::size_t row = 0; row < matrices.size(); ++row)
      look += "fila msgAlumnos " + std::to_string(row) +
              "\npulsar cmdPropiedades\nver\npulsar cmdCancelar\n";
    Lines seen;
    for (const auto& view : RunScript(school, look + "pulsar cmdCancelar\n").Of("ver"))
      seen.push_back(Matrix(view));
    ASSERT_EQ(seen, matrices) << script;
    if (session % 2 == 0) model.Grade(school);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RegisterWalkTest, testing::Range(1U, 6U));

}  // namespace
}  // namespace quorvane::test
