// Which grades a screen that fails has left without saving.

#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <gtest/gtest.h>
#include <new>

#include "apps/zendria/GradeRescue.h"
#include "apps/zendria/SavingStatements.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "tests/zendria/RescueTest.h"

namespace quorvane::test {
namespace {

class GradeRescueTest : public RescueTest {
 protected:
  /// The next step one asks for a recovery, whose grades have no place in the database: choosing
  /// one is an error already.
  void OfARecovery() {
    robot_.On("frmNotaSeccionAlumno1", [](Window& window) {
      PickSection(window);
      Robot::Pick(window, "cboMateria", "Lengua");
      FormInstance<frmNotaSeccionAlumno1>::Get().chkRecuperacion.Value(1);
      Robot::Click(window, "cmdNotaManual1(0)");
    });
  }
};

TEST_F(GradeRescueTest, RowsThatTheSaveHadWrittenAreNotInTheFile) {
  FullAt(3);
  Fail(Doing({{0, 1, "7"},
              "cmdSiguiente",
              {0, 1, "8"},
              {1, 1, "9"},
              "cmdSiguiente",
              {0, 1, "10"},
              "cmdAceptar"}));
  EXPECT_EQ(school_.Rows("SELECT CodNota FROM EvaluacionPte WHERE CodNumEvaluacion=1 ORDER BY 1"),
            (Lines{"0", "0", "107", "108"}));
  EXPECT_THAT(Cells(),
              ElementsAre(Line(kMarta, kMates, "Nota", "9"), Line(kInigo, kLengua, "Nota", "10")));
}

TEST_F(GradeRescueTest, TheLastTextOfACellCountsAndAFormerOneIsNoChange) {
  FullAt(1);
  Fail(Doing({{0, 1, "7"},
              {0, 1, "8"},
              "cmdSiguiente",
              {0, 1, "9"},
              {0, 1, "5"},
              "cmdAnterior",
              {0, 1, "6"},
              "cmdAceptar"}));
  EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "6")));
}

TEST_F(GradeRescueTest, AGradeTakenAwayIsAChangeToo) {
  FullAt(1);
  Fail(Doing({{0, 1, ""}, "cmdAceptar"}));
  EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "(en blanco)")));
}

TEST_F(GradeRescueTest, PastedGradesAreRescuedAsTypedOnesAre) {
  FullAt(1);
  Fail([](Window& window) {
    QGuiApplication::clipboard()->setText("7\n8\n");
    Robot::PressAt(window, 0, 1, Qt::CTRL | Qt::Key_V);
    Doing({"cmdSiguiente", "cmdAceptar"})(window);
  });
  EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "7")));
}

TEST_F(GradeRescueTest, WithoutAChangeThereIsNoFile) {
  FullAt(1);
  EXPECT_THAT(Fail(Doing({{0, 1, "7"}, {0, 1, "5"}, "cmdAceptar"})),
              Not(HasSubstr("notas que había")));
  EXPECT_FALSE(QFileInfo::exists(Folder()));
}

TEST_F(GradeRescueTest, NothingIsKeptOfWhatWasSavedOrCancelled) {
  for (const auto* const button : {"cmdAceptar", "cmdCancelar"})
    Use(kByStudent, Doing({{0, 1, "7"}, button}));
  // A screen that fails later has nothing to do with them.
  school_.Sql("UPDATE EvaluacionPte SET CodNota=0");
  FullAt(1);
  Fail(Doing({"cmdAceptar"}));
  EXPECT_FALSE(QFileInfo::exists(Folder()));
}

TEST_F(GradeRescueTest, OnlyTheFormThatFailsIsInTheFile) {
  StepOne(kByStudent);
  robot_.On("frmNotaManual", [this](Window& window) {
    Robot::Grade(window, 0, 1, "7");
    FullAt(1);
    Robot::Click(window, "cmdCancelar");
  });
  Fail(kByStudent.In("2"), Doing({"cmdSiguiente", {0, 1, "8"}, "cmdAceptar"}));
  EXPECT_THAT(Cells(), ElementsAre(Line(kMarta, kLengua, "Nota", "8")));
  EXPECT_TRUE(Content().contains("Evaluación: 2ª Evaluación\n"));
}

TEST_F(GradeRescueTest, AnErrorAtTheBeginOfAnEditLosesNothing) {
  Fail([this](Window& window) {
    Robot::Grade(window, 0, 1, "7");
    school_.Sql("ALTER TABLE TipoNota RENAME TO Apartado");
    EXPECT_EQ(Robot::OpenList(window, 0, 5), nullptr);
  });
  EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "7")));
}

TEST_F(GradeRescueTest, AFailureThatIsNoRuntimeErrorLosesNothing) {
  const auto text = Fail([](Window& window) {
    Robot::Grade(window, 0, 1, "7");
    throw std::bad_alloc();
  });
  EXPECT_THAT(text, StartsWith("Error inesperado: "));
  EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "7")));
}

TEST_F(GradeRescueTest, AnErrorAtTheEndOfAnEditLosesNothing) {
  OfARecovery();
  EXPECT_THAT(FailIn(kOfSubject, Doing({{0, 1, "5"}})), StartsWith("Error 438: "));
  EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "5")));
}

TEST_F(GradeRescueTest, NothingIsTakenAwayFromAnEmptyCellOfARecovery) {
  OfARecovery();
  robot_.On("frmNotaSeccionAlumno", [](Window& window) {
    Robot::PressAt(window, 0, 1, Qt::Key_Delete);
    Robot::Click(window, "cmdCancelar");
  });
  LeaveStepOne(kOfSubject);
  Play(127);
}

/// A form in which saving a pending row fails.
struct FailingForm {
  const char* name;
  Flow flow;
  int pending;
  std::vector<Robot::Deed> deeds;
  std::vector<std::string> kept;  ///< what the file has of the cells, but for the student
  const char* told = "";          ///< what it says besides
};

class GradeRescueFormsTest : public RescueTest, public testing::WithParamInterface<FailingForm> {};

TEST_P(GradeRescueFormsTest, WhatItCouldNotSaveIsInTheFile) {
  const auto& [name, flow, pending, deeds, kept, told] = GetParam();
  FullAt(pending, flow.form.ends_with("Final") ? "EvaluacionActaPte" : "EvaluacionPte");
  Fail(flow, Doing(deeds));
  Lines cells;
  for (const auto& cell : kept) cells.push_back(std::string(kMarta) + '\t' + cell);
  EXPECT_EQ(Cells(), cells);
  EXPECT_TRUE(Content().contains(told)) << Content().toStdString();
}

const std::vector<Robot::Deed> kTwoGrades{{0, 1, "7"}, "cmdSiguiente", {0, 1, "8"}, "cmdAceptar"};

INSTANTIATE_TEST_SUITE_P(
    All, GradeRescueFormsTest,
    testing::Values(
        FailingForm{"BySubject",
                    kBySubject,
                    2,
                    {{0, 1, "7"}, {1, 1, "8"}, "cmdSiguiente", {0, 1, "9"}, "cmdAceptar"},
                    {"Lengua (1º ESO)\tNota\t8", "Matemáticas (1º ESO)\tNota\t9"},
                    "Pantalla: Por materia (frmNotaMateria)\n"},
        FailingForm{"OfOneSubjectByStudent",
                    kOfSubject,
                    2,
                    kTwoGrades,
                    {"Lengua (1º ESO)\tNota\t8"},
                    "Evaluación: 1ª Evaluación\nMateria: Lengua"},
        FailingForm{"OfOneStudentBySubject",
                    kOfStudent,
                    3,
                    kTwoGrades,
                    {"Matemáticas (1º ESO)\tNota\t8"},
                    "Evaluación: 1ª Evaluación\nAlumno: Díaz Cano, Marta\n"},
        FailingForm{"FinalByStudent",
                    kByStudent.Final(),
                    2,
                    {{0, 1, "7"}, "cmdSiguiente", {1, 5, "Mejora"}, "cmdAceptar"},
                    {"Matemáticas (1º ESO)\tObservación\tMejora"}},
        FailingForm{"FinalOfOneSubjectByStudent",
                    kOfSubject.Final(),
                    2,
                    kTwoGrades,
                    {"Lengua (1º ESO)\tNota\t8"}},
        FailingForm{"FinalOfOneStudentBySubject",
                    kOfStudent.Final(),
                    3,
                    kTwoGrades,
                    {"Matemáticas (1º ESO)\tNota\t8"}}),
    [](const auto& one) { return std::string(one.param.name); });

TEST_F(GradeRescueTest, FinalBySubject) {
  school_.Sql("UPDATE Curso SET RE_AC=-1");
  FullAt(2, "EvaluacionActaPte");
  Fail(kBySubject.Final(),
       Doing({{0, 1, "7"}, {0, 6, "Ref"}, {1, 1, "8"}, {1, 6, "Ada"}, "cmdAceptar"}));
  EXPECT_EQ(school_.Rows("SELECT CodNota, RE_AC_DIV FROM EvaluacionActaPte ORDER BY "
                         "CodAlumnoPte_MatDet"),
            (Lines{"107|1", "105|0", "0|0", "0|0"}));
  EXPECT_THAT(Cells(),
              ElementsAre(Line(kMarta, kLengua, "Nota", "8"),
                          Line(kMarta, kLengua, "Medidas Adoptadas", "Adaptación curricular")));
}

using zendria::GradeCell;
using zendria::GradeSheet;
using zendria::SavingStatements;

constexpr const char* kOrdinary =
    "UPDATE EvaluacionPte SET UltimaEvaluada=-1 ,Evaluado=-1,CodNota=107,CodNotaActitud=0, "
    "CodNotaObservacion=201,CodNotaConcepto=0,CodNotaProcedimiento=3 WHERE CodNumEvaluacion=1 AND "
    "CodAlumnoPte_MatDet = 12";
constexpr const char* kFinal =
    "UPDATE EvaluacionActaPte SET UltimaEvaluada=0, CodNota=105, CodNotaObservacion=0, "
    "RE_AC_DIV=2, "
    "Evaluado=-1 WHERE CodNumEvaluacion=4 AND CodAlumnoPte_MatDet =12";

struct Cell {
  const char* table;
  int evaluation;
  int pending;
  const char* field;
  int data;
};

bool Wrote(const SavingStatements& saving, const Cell& looked) {
  GradeSheet sheet;
  sheet.table = looked.table;
  sheet.evaluacion = looked.evaluation;
  GradeCell cell;
  cell.pending = looked.pending;
  cell.field = looked.field;
  cell.data = looked.data;
  return saving.Wrote(sheet, cell);
}

SavingStatements Told(std::initializer_list<const char*> statements) {
  SavingStatements saving;
  for (const auto* const statement : statements) saving.Told(statement);
  return saving;
}

TEST(SavingStatementsTest, EachFieldOfARowCountsAndWhatIsAlikeButAnotherDoesNot) {
  const auto saving = Told({kOrdinary, kFinal, "SELECT 1"});
  const auto expect = [&saving](bool wrote, const std::vector<Cell>& cells) {
    for (const auto& cell : cells)
      EXPECT_EQ(Wrote(saving, cell), wrote) << cell.table << ' ' << cell.evaluation << ' '
                                            << cell.pending << ' ' << cell.field << cell.data;
  };
  expect(true, {{"EvaluacionPte", 1, 12, "CodNota", 107},
                {"EvaluacionPte", 1, 12, "CodNotaActitud", 0},
                {"EvaluacionPte", 1, 12, "CodNotaObservacion", 201},
                {"EvaluacionPte", 1, 12, "CodNotaProcedimiento", 3},
                {"EvaluacionActaPte", 4, 12, "CodNota", 105},
                {"EvaluacionActaPte", 4, 12, "RE_AC_DIV", 2}});
  expect(false, {{"EvaluacionPte", 1, 12, "CodNota", 10},
                 {"EvaluacionPte", 1, 12, "CodNota", 7},
                 {"EvaluacionPte", 1, 2, "CodNota", 107},
                 {"EvaluacionPte", 1, 1, "CodNota", 107},
                 {"EvaluacionPte", 11, 12, "CodNota", 107},
                 {"EvaluacionPte", 4, 12, "CodNota", 105},
                 {"EvaluacionActaPte", 1, 12, "CodNota", 107},
                 {"EvaluacionPte", 1, 12, "", 107}});
}

TEST(SavingStatementsTest, TheLastMayHaveFailed) {
  SavingStatements saving;
  saving.Told(kFinal);
  EXPECT_FALSE(Wrote(saving, {"EvaluacionActaPte", 4, 12, "CodNota", 105}));
  saving.Told(kOrdinary);
  EXPECT_TRUE(Wrote(saving, {"EvaluacionActaPte", 4, 12, "CodNota", 105}));
  EXPECT_FALSE(Wrote(saving, {"EvaluacionPte", 1, 12, "CodNota", 107}));
  saving.Clear();
  saving.Told("SELECT 1");
  EXPECT_FALSE(Wrote(saving, {"EvaluacionActaPte", 4, 12, "CodNota", 105}));
  EXPECT_FALSE(Wrote(saving, {"EvaluacionPte", 1, 12, "CodNota", 107}));
}

}  // namespace
}  // namespace quorvane::test
