#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/cConfiguracion.h"
#include "grades/NotasOrdinarias.h"
#include "grades/grid/Anchos.h"
#include "grades/grid/CeldaNotas.h"
#include "grades/grid/NotasTutor.h"
#include "grades/locks/MateriasBloqueo.h"
#include "grades/saving/Intentos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/controls/Retivo.h"
#include "platform/host/Application.h"
#include "tests/grades/DirectSession.h"

// What the grade forms share, where it depends on what a form passes.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string ListOf(std::initializer_list<int> subjects) {
  auto list = ListaMateriasBloqueo();
  for (const auto subject : subjects) AnotarMateria(list, subject);
  CerrarLista(list);
  return list;
}

TEST(MateriasBloqueo, EachSubjectStandsOnceBehindTheLeadingZero) {
  EXPECT_EQ(ListOf({7}), "0,7");
  EXPECT_EQ(ListOf({7, 12, 7, 2, 12}), "0,7,12,2");
  EXPECT_EQ(ListOf({112, 12, 1}), "0,112,12,1") << "not found inside a longer number";
}

TEST(MateriasBloqueo, ListWithoutSubjectsIsEmptied) { EXPECT_EQ(ListOf({}), ""); }

TEST(MateriasBloqueo, SplittingSkipsTheLeadingZero) {
  EXPECT_THAT(MateriasDeLista("0,7,12"), ElementsAre(7, 12));
  EXPECT_THAT(MateriasDeLista("0"), IsEmpty());
  EXPECT_THAT(MateriasDeLista(""), IsEmpty());
}

class Attempts : public ::testing::Test {
 public:
  Attempts() { Application::Instance().UseScreen(&screen_); }
  ~Attempts() override { Application::Instance().UseScreen(nullptr); }
  Attempts(const Attempts&) = delete;
  Attempts& operator=(const Attempts&) = delete;
  Attempts(Attempts&&) = delete;
  Attempts& operator=(Attempts&&) = delete;

 protected:
  /// Runs the loop over these answers; gives back how many attempts it made.
  int Run(std::vector<std::int32_t> answers) {
    std::size_t made = 0;
    InsertarConIntentos("No va", [&] { return answers.at(made++); });
    return static_cast<int>(made);
  }

  SilentScreen screen_;
};

TEST_F(Attempts, EndWithTheFirstThatSucceeds) {
  EXPECT_EQ(Run({0}), 1);
  EXPECT_THAT(screen_.messages, IsEmpty());
}

TEST_F(Attempts, GoOnWithoutLimitWhileTheEngineRefuses) {
  std::vector<std::int32_t> answers(50, -2147467259);
  answers.push_back(0);
  EXPECT_EQ(Run(answers), 51);
  EXPECT_THAT(screen_.messages, IsEmpty());
}

TEST_F(Attempts, AnyOtherNumberIsAMessageAndTheEnd) {
  EXPECT_EQ(Run({-2147467259, 6}), 2);
  EXPECT_THAT(screen_.messages,
              ElementsAre(std::to_string(static_cast<int>(MessageIcon::Critical)) +
                          " Zendria Escuela: No va"));
  EXPECT_EQ(screen_.beeps, 1);
}

TEST_F(Attempts, FailureThatNobodyTrapsLeavesTheLoop) {
  EXPECT_EQ(DirectSession::ErrorOf([] {
              InsertarConIntentos("No va", []() -> std::int32_t {
                throw RuntimeError(ErrorNumber::StatementFailed);
              });
            }),
            -2147467259);
  EXPECT_THAT(screen_.messages, IsEmpty());
}

class GridOnAForm : public ::testing::Test {
 protected:
  GridOnAForm() { grid_.Cols(4); }

  std::vector<std::int32_t> Widths() const {
    return {grid_.ColWidth(0), grid_.ColWidth(1), grid_.ColWidth(2), grid_.ColWidth(3)};
  }
  void Widen(std::int32_t width) {
    for (int column = 0; column < grid_.Cols(); ++column) grid_.ColWidth(column, width);
  }

  Form form_{"frmPrueba"};
  Retivo grid_{form_, "rtv"};
};

TEST_F(GridOnAForm, WidthsReachUpToTheHighestColumnAndKeepWhatTheyHold) {
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

TEST_F(GridOnAForm, WhileTheFormLoadsWidthsAreKeptOnlyWhenAskedAndNeverGivenBack) {
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

TEST_F(GridOnAForm, ColumnBeyondTheGridEndsTheCopyAndIsAnErrorWhenGivenBack) {
  Anchos widths;
  widths.Crecer(5);
  Widen(500);
  widths.Guardar(grid_, false, true);
  Widen(100);
  EXPECT_EQ(DirectSession::ErrorOf([&] { widths.Restaurar(grid_, false); }), 381);
  EXPECT_THAT(Widths(), ElementsAre(500, 500, 500, 500));
}

constexpr const char* kScope =
    "(CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion=33)) AND "
    "(CodCurso=0 OR CodCurso=22) AND (CodNumevaluacion=0 OR CodNumEvaluacion=44)";
constexpr const char* kSystems =
    "CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE "
    "CodTipoEnsenanza=11))) ORDER BY DescripcionCorta";

class CellStatement : public ::testing::TestWithParam<bool> {
 public:
  CellStatement() { cConfiguracion::Instancia().SQLServer = GetParam(); }
  ~CellStatement() override { cConfiguracion::Instancia().SQLServer = false; }
  CellStatement(const CellStatement&) = delete;
  CellStatement& operator=(const CellStatement&) = delete;
  CellStatement(CellStatement&&) = delete;
  CellStatement& operator=(CellStatement&&) = delete;

 protected:
  const DatosPasoUno chosen_{11, 22, 33, 44, 5, false};
  const std::string true_ = GetParam() ? "1" : "-1";
};

TEST_P(CellStatement, OfASubjectAndOfAnObjective) {
  cMateria subject;
  subject.IDMatDetalle = 66;
  subject.IDProfesor = 7;
  subject.IDProfesorAsociado = 8;
  for (const bool objective : {false, true}) {
    EXPECT_EQ(
        SentenciaCelda(chosen_, 2, subject, objective),
        std::string("SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND ") +
            kScope +
            " AND (CodMateria=0 OR CodMateria=66) AND (CodPersonal=0 OR CodPersonal=7 OR "
            "CodPersonal=8) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE "
            "Orden=2 AND Materia=" +
            (objective ? "0" : true_) + " AND Observacion=" + (objective ? true_ : "0") +
            " AND Evaluacion=" + true_ +
            " AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE " + kSystems);
  }
}

TEST_P(CellStatement, WithoutTheExceptionalOnesAndForAKindOfSubject) {
  CondicionesNota conditions;
  conditions.sinExcepcionales = false;
  conditions.materiaYProfesor = DeMateriaYProfesores("66", 0, 0);
  conditions.tipoNota = "Orden=1 AND Materia=" + true_ + " AND Observacion=0";
  conditions.clase = "CodEspecificarTipoMateria=4 AND ";
  EXPECT_EQ(SentenciaNotas(chosen_, conditions),
            std::string("SELECT IDNota, DescripcionCorta FROM Nota WHERE ") + kScope +
                " AND (CodMateria=0 OR CodMateria=66) AND (CodPersonal=0 OR CodPersonal=0 OR "
                "CodPersonal=0) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden=1 "
                "AND Materia=" +
                true_ +
                " AND Observacion=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria "
                "WHERE CodEspecificarTipoMateria=4 AND " +
                kSystems);
}

TEST_P(CellStatement, OfTheObservation) {
  for (const bool without : {false, true})
    EXPECT_EQ(SentenciaObservaciones(chosen_, without),
              std::string("SELECT IDNota, DescripcionCorta FROM Nota WHERE ") +
                  (without ? "NotaExcepcional=0 AND " : "") + kScope +
                  " AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden=1 AND "
                  "Materia=0 AND Observacion=0 AND Evaluacion=" +
                  true_ + " AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE " +
                  kSystems);
}

INSTANTIATE_TEST_SUITE_P(Engines, CellStatement, ::testing::Bool(), [](const auto& engine) {
  return engine.param ? "SqlServer" : "FileDatabase";
});

}  // namespace
}  // namespace quorvane::test
