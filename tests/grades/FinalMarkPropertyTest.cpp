#include <array>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "tests/grades/GradeSchool.h"
#include "tests/grades/Roles.h"
#include "tests/support/ScriptRun.h"
#include "tests/support/ServerSchools.h"

// The mark of the last final evaluation with a grade, over sequences of saves of three final
// evaluations of one pending subject.

namespace quorvane::test {
namespace {

constexpr std::uint32_t kSeed = 20260114;
constexpr int kSequences = 20;
constexpr int kSaves = 10;
constexpr std::array<int, 3> kFinals = {4, 6, 7};

struct Save {
  std::size_t evaluation;
  bool grade;
};

using Sequence = std::vector<Save>;

/// Grade and mark of the three rows, as they stand after a save.
struct Rows {
  std::array<bool, 3> graded{};
  std::array<bool, 3> marked{};

  [[nodiscard]] std::string Marks() const {
    std::string marks;
    for (const auto mark : marked) marks += mark ? '1' : '0';
    return marks;
  }
  [[nodiscard]] bool AtMostOneMark() const { return marked[0] + marked[1] + marked[2] <= 1; }
};

/// Saves one after the other in one run of the program, with the rows after each.
std::vector<Rows> Play(const Sequence& saves) {
  const FinalSchool school;
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet<>4");
  for (const auto evaluacion : {6, 7}) school.Evalua(4, evaluacion);
  std::string script = "nodo 124\nelegir cboCursos =32\nelegir cboSecciones =321\n";
  for (const auto& save : saves)
    script += "elegir cboEvaluaciones =" + std::to_string(kFinals[save.evaluation]) +
              "\npulsar cmdNotaManual1(0)\neditar rtvNotasAlumno 1 1 \"" +
              (save.grade ? "7" : " ") +
              "\"\npulsar cmdAceptar\n"
              "sql \"SELECT CASE WHEN CodNota>0 THEN 1 ELSE 0 END, -UltimaEvaluada FROM "
              "EvaluacionActaPte WHERE "
              "CodAlumnoPte_MatDet=4 AND CodNumEvaluacion<>5 ORDER BY CodNumEvaluacion\"\n";
  const auto lines = RunScript(school, script, SessionOf(kTutor)).Of("fila");
  std::vector<Rows> states(lines.size() / 3);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    states[i / 3].graded[i % 3] = lines[i].starts_with("[1");
    states[i / 3].marked[i % 3] = lines[i].ends_with("1]");
  }
  return states;
}

std::string Text(const Sequence& saves) {
  std::string text;
  for (const auto& save : saves)
    text += " " + std::to_string(kFinals[save.evaluation]) + (save.grade ? "+" : "-");
  return text;
}

/// Of three, saving the third without a grade hands the mark back to the first with a grade, also
/// when the second holds it: then both have it.
bool HandsTheMarkTwice(const std::array<bool, 3>& graded, const Save& save) {
  return save.evaluation == 2 && !save.grade && graded[0] && graded[1];
}

TEST(FinalMarkPropertyTest, AtMostOneRowHoldsTheMarkAndItHasAGrade) {
  std::mt19937 random(kSeed);
  // What a save does is the module's; of the server it is asked whether it keeps it.
  const auto sequences = OnServer() ? kSequences / 10 : kSequences;
  for (int i = 0; i < sequences; ++i) {
    Sequence saves;
    std::array<bool, 3> graded{};
    while (saves.size() < kSaves) {
      const Save save{random() % 3, random() % 3 != 0};
      if (HandsTheMarkTwice(graded, save)) continue;
      graded[save.evaluation] = save.grade;
      saves.push_back(save);
    }
    const auto states = Play(saves);
    ASSERT_EQ(states.size(), saves.size()) << "seed " << kSeed << ":" << Text(saves);
    for (std::size_t step = 0; step < states.size(); ++step) {
      const auto& state = states[step];
      EXPECT_TRUE(state.AtMostOneMark()) << "seed " << kSeed << ":" << Text(saves)
                                         << ", after save " << step + 1 << ": " << state.Marks();
      for (std::size_t row = 0; row < 3; ++row)
        EXPECT_TRUE(state.graded[row] || !state.marked[row]) << Text(saves);
      // With a grade the mark is here, unless a later one has it.
      EXPECT_TRUE(!saves[step].grade ||
                  state.Marks().find('1', saves[step].evaluation) != std::string::npos)
          << Text(saves);
    }
  }
}

// What is left out above: the mark is handed back without taking it from anybody. It stays so until
// the next save with a grade of an evaluation that no marked one follows.
TEST(FinalMarkPropertyTest, ThirdFinalWithoutAGradeMarksTheFirstBesideTheSecond) {
  const auto states =
      Play({{0, true}, {1, true}, {2, false}, {0, true}, {2, false}, {1, true}, {2, true}});
  std::vector<std::string> marks;
  marks.reserve(states.size());
  for (const auto& state : states) marks.push_back(state.Marks());
  EXPECT_EQ(marks, (std::vector<std::string>{"100", "010", "110", "010", "110", "010", "001"}));
}

// Taken away from the third, the mark goes to whichever row comes first, which isn't the latest.
TEST(FinalMarkPropertyTest, MarkGoesBackToTheFirstRowAndNotToTheLatest) {
  const auto states = Play({{0, true}, {1, true}, {2, true}, {2, false}});
  ASSERT_EQ(states.size(), 4U);
  EXPECT_EQ(states.back().Marks(), "100");
}

}  // namespace
}  // namespace quorvane::test
