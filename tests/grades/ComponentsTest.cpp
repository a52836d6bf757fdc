#include "frame/cConfiguracion.h"
#include "grades/NotasOrdinarias.h"
#include "grades/grid/Anchos.h"
#include "grades/grid/NotasTutor.h"
#include "grades/loading/DatosPasoUno.h"
#include "grades/locks/MateriasBloqueo.h"
#include "grades/saving/Intentos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/controls/Retivo.h"
#include "platform/host/Application.h"
#include "tests/grades/DirectSession.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// What the grade forms share, where it depends on what a form passes.

namespace quorvane::test {
namespace {

std::string ListOf(std::initializer_list<int> subjects) {
  auto list = ListaMateriasBloqueo();
  for (const auto subject : subjects) AnotarMateria(list, subject);
  CerrarLista(list);
  return list;
}

TEST(MateriasBloqueoTest, EachSubjectStandsOnceBehindTheLeadingZero) {
  EXPECT_EQ(ListOf({7}), "0,7");
  EXPECT_EQ(ListOf({7, 12, 7, 2, 12}), "0,7,12,2");
  EXPECT_EQ(ListOf({112, 12, 1}), "0,112,12,1") << "not found inside a longer number";
}

TEST(MateriasBloqueoTest, ListWithoutSubjectsIsEmptied) { EXPECT_EQ(ListOf({}), ""); }

TEST(MateriasBloqueoTest, SplittingSkipsTheLeadingZero) {
  EXPECT_THAT(MateriasDeLista("0,7,12"), ElementsAre(7, 12));
  EXPECT_THAT(MateriasDeLista("0"), IsEmpty());
  EXPECT_THAT(MateriasDeLista(""), IsEmpty());
}

class AttemptsTest : public ::testing::Test {
 protected:
  void SetUp() override { Application::Instance().UseScreen(&screen_); }
  void TearDown() override { Application::Instance().UseScreen(nullptr); }

  /// Runs the loop over these answers; gives back how many attempts it made.
  int Run(std::vector<std::int32_t> answers) {
    std::size_t made = 0;
    InsertarConIntentos("No va", [&] { return answers.at(made++); });
    return static_cast<int>(made);
  }

  SilentScreen screen_;
};

TEST_F(AttemptsTest, EndWithTheFirstThatSucceeds) {
  EXPECT_EQ(Run({0}), 1);
  EXPECT_THAT(screen_.messages, IsEmpty());
}

TEST_F(AttemptsTest, GoOnWithoutLimitWhileTheEngineRefuses) {
  std::vector<std::int32_t> answers(50, -2147467259);
  answers.push_back(0);
  EXPECT_EQ(Run(answers), 51);
  EXPECT_THAT(screen_.messages, IsEmpty());
}

TEST_F(AttemptsTest, AnyOtherNumberIsAMessageAndTheEnd) {
  EXPECT_EQ(Run({-2147467259, 6}), 2);
  EXPECT_THAT(screen_.messages,
              ElementsAre(std::to_string(static_cast<int>(MessageIcon::Critical)) +
                          " Zendria Escuela: No va"));
  EXPECT_EQ(screen_.beeps, 1);
}

TEST_F(AttemptsTest, FailureThatNobodyTrapsLeavesTheLoop) {
  EXPECT_EQ(DirectSession::ErrorOf([] {
              InsertarConIntentos("No va", []() -> std::int32_t {
                throw RuntimeError(ErrorNumber::StatementFailed);
              });
            }),
            -2147467259);
  EXPECT_THAT(screen_.messages, IsEmpty());
}

class GridOnAFormTest : public ::testing::Test {
 protected:
  GridOnAFormTest() { grid_.Cols(4); }

  std::vector<std::int32_t> Widths() const {
    return {grid_.ColWidth(0), grid_.ColWidth(1), grid_.ColWidth(2), grid_.ColWidth(3)};
  }
  void Widen(std::int32_t width) {
    for (int column = 0; column < grid_.Cols(); ++column) grid_.ColWidth(column, width);
  }

  Form form_{"frmPrueba"};
  Retivo grid_{form_, "rtv"};
};

TEST_F(GridOnAFormTest, WidthsReachUpToTheHighestColumnAndKeepWhatTheyHold) {
  Anchos widths;
  widths.Crecer(1);
  Widen(500);
  widths.Guardar(grid_, false, false);
  widths.Crecer(2);
  widths.Crecer(0);
  Widen(100);
  widths.Restaurar(grid_, false);
  EXPECT_THAT(Widths(), ElementsAre(500, 500, 0, 100));
}

TEST_F(GridOnAFormTest, WhileTheFormLoadsWidthsAreKeptOnlyWhenAskedAndNeverGivenBack) {
  Anchos widths;
  widths.Crecer(3);
  Widen(500);
  widths.Guardar(grid_, true, false);
  Widen(700);
  widths.Restaurar(grid_, true);
  EXPECT_THAT(Widths(), ElementsAre(700, 700, 700, 700));
  widths.Guardar(grid_, true, true);
  Widen(100);
  widths.Restaurar(grid_, false);
  EXPECT_THAT(Widths(), ElementsAre(700, 700, 700, 700));
}

TEST_F(GridOnAFormTest, ColumnBeyondTheGridEndsTheCopyAndIsAnErrorWhenGivenBack) {
  Anchos widths;
  widths.Crecer(5);
  Widen(500);
  widths.Guardar(grid_, false, true);
  Widen(100);
  EXPECT_EQ(DirectSession::ErrorOf([&] { widths.Restaurar(grid_, false); }), 381);
  EXPECT_THAT(Widths(), ElementsAre(500, 500, 500, 500));
}

class CellStatementTest : public ::testing::TestWithParam<bool> {
 protected:
  void SetUp() override { cConfiguracion::Instancia().SQLServer = GetParam(); }
  void TearDown() override { cConfiguracion::Instancia().SQLServer = false; }

  const DatosPasoUno chosen_{11, 22, 33, 44, 5, false};
  const int true_ = GetParam() ? 1 : -1;
};

TEST_P(CellStatementTest, OfASubjectAndOfAnObjective) {
  cMateria subject;
  subject.IDMatDetalle = 66;
  subject.IDProfesor = 7;
  subject.IDProfesorAsociado = 8;
  for (const bool objective : {false, true})
    EXPECT_EQ("sql centro " + SentenciaCelda(chosen_, 2, subject, objective),
              Sql(expected::kCellList, {33, 22, 44, 66, 7, 8, 2, objective ? 0 : true_,
                                        objective ? true_ : 0, true_, 11}));
}

TEST_P(CellStatementTest, OfTheObservation) {
  for (const bool without : {false, true})
    EXPECT_EQ("sql centro " + SentenciaObservaciones(chosen_, without),
              Sql(without ? expected::kPlainObservations : expected::kObservations,
                  {33, 22, 44, true_, 11}));
}

INSTANTIATE_TEST_SUITE_P(Engines, CellStatementTest, ::testing::Bool(), [](const auto& engine) {
  return engine.param ? "SqlServer" : "FileDatabase";
});

}  // namespace
}  // namespace quorvane::test
