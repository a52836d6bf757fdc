#include <gmock/gmock.h>

#include "tests/register/RegisterModel.h"
#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

/// The matrix as the model tells it: the row data, then the marks of each row.
std::string Matrix(const std::string& view) {
  ScriptResult one;
  one.lines.push_back("ver " + view);
  const auto cells = View(one, "msgMaterias", "celdas");
  std::string marks;
  // Each row after the heading: a text, eight marks, the order.
  auto row = cells.find("],[");
  while (row != std::string::npos) {
    const auto end = cells.find("],[", row + 1);
    auto texts =
        cells.substr(row + 3, (end == std::string::npos ? cells.size() - 2 : end) - row - 3);
    texts = texts.substr(texts.find("\",\"") + 1);
    marks += texts.substr(0, texts.rfind(",\"")) + ";";
    row = end;
  }
  return View(one, "msgMaterias", "datos") + " " + marks;
}

class RegisterWalkTest : public testing::TestWithParam<unsigned> {};

TEST_P(RegisterWalkTest, WhatIsSavedIsWhatTheUserSeesWhenHeComesBack) {
  const SmallSchool school;
  RegisterModel model(GetParam());
  for (int session = 0; session < 12; ++session) {
    const auto script = model.Session();
    const auto run = RunScript(school, script);
    ASSERT_EQ(run.status, 0) << run.Text();
    ASSERT_THAT(run.Of("rechazo"), testing::IsEmpty()) << script;
    ASSERT_THAT(run.Of("mensaje"), testing::IsEmpty()) << script;
    ASSERT_EQ(RegisterModel::Stored(school), model.Expected()) << script;

    auto look = kOpen;
    const auto matrices = model.ExpectedMatrices();
    for (std::size_t row = 0; row < matrices.size(); ++row)
      look += "fila msgAlumnos " + std::to_string(row) +
              "\npulsar cmdPropiedades\nver\npulsar cmdCancelar\n";
    std::vector<std::string> seen;
    for (const auto& view : RunScript(school, look + "pulsar cmdCancelar\n").Of("ver"))
      seen.push_back(Matrix(view));
    ASSERT_EQ(seen, matrices) << script;
    if (session % 2 == 0) model.Grade(school);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RegisterWalkTest, testing::Range(1U, 6U));

}  // namespace
}  // namespace quorvane::test
