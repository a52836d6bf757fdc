#include <utility>

#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/MSFlexGrid.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

class GridTest : public testing::Test {
 protected:
  void Fill(const std::vector<std::string>& texts) {
    grid.Rows(1);
    grid.FixedRows(0);
    grid.Rows(2);
    grid.FixedRows(1);
    grid.Rows(1);
    for (const auto& text : texts) grid.AddItem(text);
  }
  [[nodiscard]] std::vector<std::string> Column(int col) const {
    std::vector<std::string> texts;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
      texts.push_back(grid.TextMatrix(row, col));
    return texts;
  }

  Form form{"frmX"};
  MSFlexGrid grid{form, "msgX"};
};

TEST_F(GridTest, TheFirstRowBelowTheHeadingBecomesCurrent) {
  Fill({});
  EXPECT_EQ(grid.FixedRows(), 1);
  EXPECT_EQ(grid.Row(), 0) << "the heading, while there is nothing else";
  grid.AddItem("uno");
  EXPECT_EQ(grid.Row(), 1);
  grid.AddItem("dos");
  EXPECT_EQ(grid.Row(), 1);
  EXPECT_EQ(grid.RowSel(), 1);
}

TEST_F(GridTest, TheCurrentRowIsKeptWhileItExistsElseTheLast) {
  Fill({"uno", "dos", "tres"});
  grid.Row(3);
  grid.AddItem("cuatro");
  EXPECT_EQ(grid.Row(), 3);
  grid.Rows(3);
  EXPECT_EQ(grid.Row(), 2);
  grid.Rows(5);
  EXPECT_EQ(grid.Row(), 2);
  grid.Rows(0);
  EXPECT_EQ(grid.Row(), -1);
  EXPECT_EQ(grid.FixedRows(), 0);
  grid.AddItem("uno");
  EXPECT_EQ(grid.Row(), 0);
}

TEST_F(GridTest, MakingTheCurrentRowFixedMovesIt) {
  grid.Rows(3);
  EXPECT_EQ(grid.Row(), 0);
  grid.FixedRows(2);
  EXPECT_EQ(grid.Row(), 2);
}

TEST_F(GridTest, SomeRowsHaveToBeFree) {
  grid.Rows(2);
  EXPECT_EQ(ErrorOf([&] { grid.FixedRows(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.FixedRows(-1); }), 380);
  grid.Rows(1);
  EXPECT_EQ(ErrorOf([&] { grid.FixedRows(1); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.FixedRows(0); }), 0);
  EXPECT_EQ(ErrorOf([&] { grid.FixedCols(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.FixedCols(1); }), 0);
}

TEST_F(GridTest, ClearEmptiesTheCellsAndMovesNothing) {
  Fill({"uno", "dos"});
  grid.Row(2);
  grid.Col(1);
  grid.RowData(2, 7);
  grid.Clear();
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_EQ(grid.Row(), 2);
  EXPECT_EQ(grid.Col(), 1);
  EXPECT_EQ(grid.TextMatrix(2, 0), "");
  EXPECT_EQ(grid.RowData(2), 0);
}

TEST_F(GridTest, ColumnsStartAtZeroAndKeepTheirTexts) {
  EXPECT_EQ(grid.Col(), 0);
  grid.TextMatrix(1, 1, "x");
  grid.Cols(4);
  EXPECT_EQ(grid.TextMatrix(1, 1), "x");
  EXPECT_EQ(grid.TextMatrix(1, 3), "");
  grid.Col(3);
  grid.Cols(2);
  EXPECT_EQ(grid.Col(), 1);
}

TEST_F(GridTest, CellsRowsAndColumnsThatDontExist) {
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(grid.TextMatrix(2, 0)); }), 381);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(grid.TextMatrix(-1, 0)); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.TextMatrix(0, 2, "x"); }), 381);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(grid.ColWidth(2)); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.ColWidth(-1, 5); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.ColWidth(0, -5); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.ColAlignment(2, 4); }), 381);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(grid.RowData(2)); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.RowData(-1, 1); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.Row(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.Col(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.Rows(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.Cols(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.TopRow(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { grid.RowPosition(0, 2); }), 381);
  EXPECT_EQ(ErrorOf([&] { grid.RowPosition(2, 0); }), 381);
}

TEST_F(GridTest, TellsEachSettingOfTheTopRowAlsoToTheRowThatStands) {
  Fill({"uno", "dos"});
  grid.TopRow(1);
  const auto shown = grid.Revision();
  grid.TopRow(1);
  EXPECT_EQ(grid.TopRow(), 1);
  EXPECT_EQ(grid.TopRowSets(), 2U);
  EXPECT_GT(grid.Revision(), shown);
}

TEST_F(GridTest, TellsEachChangeThatAFrontEndShows) {
  Fill({"uno", "dos"});
  const std::vector<std::pair<const char*, std::function<void()>>> changes = {
      {"AddItem", [this] { grid.AddItem("tres"); }},
      {"Rows", [this] { grid.Rows(3); }},
      {"Cols", [this] { grid.Cols(3); }},
      {"FixedRows", [this] { grid.FixedRows(0); }},
      {"TextMatrix", [this] { grid.TextMatrix(1, 1, "otro"); }},
      {"ColWidth", [this] { grid.ColWidth(1, 900); }},
      {"RowPosition", [this] { grid.RowPosition(1, 2); }},
      {"SortAscending", [this] { grid.SortAscending(); }},
      {"Row", [this] { grid.Row(grid.Row() == 1 ? 2 : 1); }},
      {"Clear", [this] { grid.Clear(); }}};
  for (const auto& [name, change] : changes) {
    const auto shown = grid.Revision();
    change();
    EXPECT_NE(grid.Revision(), shown) << name;
  }
}

TEST_F(GridTest, SortsNumbersThenSpanishTextsAndLeavesTheHeading) {
  Fill({"ñandú", "10", "Óscar", "zapato", "9", "oso", "nube", "-1", "", "ola"});
  grid.TextMatrix(0, 0, "Título");
  grid.Row(4);
  grid.SortAscending();
  EXPECT_THAT(Column(0),
              ElementsAre("-1", "9", "10", "", "nube", "ñandú", "ola", "Óscar", "oso", "zapato"));
  EXPECT_EQ(grid.TextMatrix(0, 0), "Título");
  EXPECT_EQ(grid.Row(), 4);
}

TEST_F(GridTest, SortIsStableAndTakesTheWholeRow) {
  Fill({"b", "B", "a", "á"});
  for (int row = 1; row < grid.Rows(); ++row) {
    grid.RowData(row, row);
    grid.TextMatrix(row, 1, std::to_string(row));
  }
  grid.SortAscending();
  EXPECT_EQ(Column(1), (std::vector<std::string>{"3", "4", "1", "2"}));
  EXPECT_EQ(grid.RowData(1), 3);
}

TEST_F(GridTest, SortsByTheCurrentColumn) {
  Fill({"a", "b"});
  grid.TextMatrix(1, 1, "2");
  grid.TextMatrix(2, 1, "1");
  grid.Col(1);
  grid.SortAscending();
  EXPECT_EQ(Column(0), (std::vector<std::string>{"b", "a"}));
}

TEST_F(GridTest, SortingNothingDoesNothing) {
  grid.Cols(0);
  EXPECT_EQ(ErrorOf([&] { grid.SortAscending(); }), 0);
  grid.Rows(0);
  EXPECT_EQ(ErrorOf([&] { grid.SortAscending(); }), 0);
}

TEST_F(GridTest, MovesARow) {
  Fill({"a", "b", "c"});
  grid.RowData(1, 11);
  grid.RowPosition(1, 3);
  EXPECT_EQ(Column(0), (std::vector<std::string>{"b", "c", "a"}));
  EXPECT_EQ(grid.RowData(3), 11);
  grid.RowPosition(3, 1);
  EXPECT_EQ(Column(0), (std::vector<std::string>{"a", "b", "c"}));
}

TEST_F(GridTest, ADoubleClickRaisesItsEvent) {
  grid.DoubleClick();
  int clicks = 0;
  grid.DblClick = [&clicks] { ++clicks; };
  grid.DoubleClick();
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace quorvane::test
