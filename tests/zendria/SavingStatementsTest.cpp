#include <gtest/gtest.h>

#include "apps/zendria/SavingStatements.h"

namespace quorvane::test {
namespace {

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

TEST(SavingStatementsTest, EachFieldOfARowCounts) {
  SavingStatements saving;
  for (const auto* const statement : {kOrdinary, kFinal, "SELECT 1"}) saving.Told(statement);
  for (const auto& cell : {Cell{"EvaluacionPte", 1, 12, "CodNota", 107},
                           Cell{"EvaluacionPte", 1, 12, "CodNotaActitud", 0},
                           Cell{"EvaluacionPte", 1, 12, "CodNotaObservacion", 201},
                           Cell{"EvaluacionPte", 1, 12, "CodNotaProcedimiento", 3},
                           Cell{"EvaluacionActaPte", 4, 12, "CodNota", 105},
                           Cell{"EvaluacionActaPte", 4, 12, "RE_AC_DIV", 2}})
    EXPECT_TRUE(Wrote(saving, cell)) << cell.table << ' ' << cell.field;
}

TEST(SavingStatementsTest, WhatIsAlikeButAnotherDoesNot) {
  SavingStatements saving;
  for (const auto* const statement : {kOrdinary, kFinal, "SELECT 1"}) saving.Told(statement);
  for (const auto& cell :
       {Cell{"EvaluacionPte", 1, 12, "CodNota", 10}, Cell{"EvaluacionPte", 1, 12, "CodNota", 7},
        Cell{"EvaluacionPte", 1, 2, "CodNota", 107}, Cell{"EvaluacionPte", 1, 1, "CodNota", 107},
        Cell{"EvaluacionPte", 11, 12, "CodNota", 107}, Cell{"EvaluacionPte", 4, 12, "CodNota", 105},
        Cell{"EvaluacionActaPte", 1, 12, "CodNota", 107}, Cell{"EvaluacionPte", 1, 12, "", 107}})
    EXPECT_FALSE(Wrote(saving, cell))
        << cell.table << ' ' << cell.evaluation << ' ' << cell.pending << ' ' << cell.data;
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
