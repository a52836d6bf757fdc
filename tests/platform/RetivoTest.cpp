#include "platform/controls/Form.h"
#include "platform/controls/Retivo.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

class RetivoTest : public testing::Test {
 protected:
  RetivoTest() {
    grid.Cols(4);
    grid.Rows(3);
    grid.FixedRows(1);
    grid.ListColumns(1, 2);
    grid.InicioEdicion = [this] {
      ++begun;
      if (!fills) return;
      grid.ListaAnadir(grid.Col(), " ", 0);
      grid.ListaAnadir(grid.Col(), "Notable", 7);
    };
    grid.FinEdicion = [this] { ended.push_back(grid.ListaIndice()); };
  }

  Form form{"frmX"};
  Retivo grid{form, "rtvX"};
  bool fills = true;
  int begun = 0;
  std::vector<int> ended;
};

TEST_F(RetivoTest, BeginningAnEditMovesThereAndFillsTheList) {
  grid.BeginEdit(2, 1);
  EXPECT_EQ(std::pair(grid.Row(), grid.Col()), std::pair(2, 1));
  EXPECT_EQ(begun, 1);
  ASSERT_EQ(grid.Lista(1).size(), 2U);
  EXPECT_EQ(grid.ListaDato(1), 7);
  EXPECT_TRUE(grid.Lista(2).empty());
  EXPECT_TRUE(ended.empty());
}

TEST_F(RetivoTest, EndingAnEditPutsTheTextAndTells) {
  grid.BeginEdit(1, 1);
  grid.EndEdit(1);
  EXPECT_EQ(grid.TextMatrix(1, 1), "Notable");
  EXPECT_EQ(grid.ListaDato(grid.ListaIndice()), 7);
  grid.BeginEdit(1, 1);
  grid.EndEdit(-1);
  EXPECT_EQ(grid.TextMatrix(1, 1), "");
  EXPECT_THAT(ended, ElementsAre(1, -1));
}

TEST_F(RetivoTest, ACellWithoutAListKeepsItsText) {
  grid.TextMatrix(1, 0, "Lengua");
  grid.TextMatrix(0, 1, "Nota");
  grid.BeginEdit(1, 0);
  grid.EndEdit(1);
  grid.BeginEdit(0, 1);
  grid.EndEdit(1);
  EXPECT_EQ(grid.TextMatrix(1, 0), "Lengua");
  EXPECT_EQ(grid.TextMatrix(0, 1), "Nota");
}

TEST_F(RetivoTest, BeginsAnEditWithAnEmptyList) {
  grid.BeginEdit(1, 1);
  fills = false;
  grid.BeginEdit(2, 1);
  EXPECT_TRUE(grid.Lista(1).empty()) << "that of another cell";
  EXPECT_EQ(ErrorOf([&] { grid.EndEdit(1); }), 381);
  grid.EndEdit(-1);
  EXPECT_EQ(grid.TextMatrix(2, 1), "");
  EXPECT_THAT(ended, ElementsAre(-1));
}

TEST_F(RetivoTest, EmptiesTheListBeforeTheHandlerRuns) {
  grid.BeginEdit(1, 1);
  auto offered = std::size_t{9};
  grid.InicioEdicion = [&] { offered = grid.Lista(1).size(); };
  grid.BeginEdit(1, 1);
  EXPECT_EQ(offered, 0U);
}

TEST_F(RetivoTest, LeavesTheListsOfOtherColumns) {
  grid.BeginEdit(1, 1);
  grid.BeginEdit(1, 2);
  EXPECT_EQ(grid.Lista(1).size(), 2U);
}

TEST_F(RetivoTest, EntriesAndCellsThatDontExist) {
  grid.BeginEdit(1, 1);
  EXPECT_EQ(ErrorOf([&] { grid.EndEdit(2); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.EndEdit(-2); }), 381);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(grid.ListaDato(2)); }), 381);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(grid.ListaDato(-1)); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.ListaAnadir(4, "x", 1); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.ListaLimpiar(-1); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.BeginEdit(3, 1); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.BeginEdit(1, 4); }), 380);
  EXPECT_TRUE(grid.Lista(9).empty());
  EXPECT_TRUE(grid.Lista(-1).empty());
  EXPECT_TRUE(ended.empty());
}

TEST_F(RetivoTest, KnowsItsListColumns) {
  for (const auto col : {0, 1, 2, 3})
    EXPECT_EQ(grid.EditsThroughList(col), col == 1 || col == 2) << col;
}

TEST_F(RetivoTest, ADraggedColumnTells) {
  int told = 0;
  grid.CambioAncho = [&told] { ++told; };
  grid.DragColumn(1, 700);
  EXPECT_EQ(grid.ColWidth(1), 700);
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace quorvane::test
