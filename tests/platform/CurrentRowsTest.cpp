#include "platform/controls/CurrentRows.h"
#include "platform/controls/Form.h"
#include "platform/controls/MSFlexGrid.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

/// A form with two grids, the first below a heading, and rows of data 10, 20, 20, 30.
class CurrentRowsTest : public testing::Test {
 protected:
  CurrentRowsTest() {
    for (auto* grid : {&headed, &plain}) grid->Cols(2);
    headed.Rows(2);
    headed.FixedRows(1);
    Fill({10, 20, 20, 30});
  }

  void Fill(const std::vector<int>& rows) {
    headed.Rows(1);
    plain.Rows(0);
    for (const auto data : rows) {
      for (auto* grid : {&headed, &plain}) {
        grid->AddItem("x");
        grid->RowData(grid->Rows() - 1, data);
      }
    }
  }

  /// The current rows of both.
  [[nodiscard]] std::pair<int, int> Current() const { return {headed.Row(), plain.Row()}; }

  Form form{"frmX"};
  MSFlexGrid headed{form, "msgUno"};
  MSFlexGrid plain{form, "msgDos"};
};

TEST_F(CurrentRowsTest, AreFoundByTheirDataWhereverTheyStandNow) {
  headed.Row(4);
  plain.Row(3);
  headed.Col(1);
  const CurrentRows chosen(form);
  Fill({5, 30, 10});
  ASSERT_EQ(headed.Row(), 1);
  chosen.ChooseAgain();
  EXPECT_EQ(Current(), std::pair(2, 1));
  EXPECT_EQ(headed.Col(), 1);
}

TEST_F(CurrentRowsTest, OfEqualDataAreToldApartByTheirOrder) {
  headed.Row(3);
  plain.Row(1);
  const CurrentRows chosen(form);
  Fill({10, 20, 30, 20});
  chosen.ChooseAgain();
  EXPECT_EQ(Current(), std::pair(4, 1)) << "the second of the two, and the first";
}

TEST_F(CurrentRowsTest, ThatAreGoneLeaveTheGridAsItWasFilled) {
  headed.Row(4);
  plain.Row(2);
  const CurrentRows chosen(form);
  Fill({10, 20});
  chosen.ChooseAgain();
  EXPECT_EQ(Current(), std::pair(1, 0)) << "below, one alone has that data now";
  Fill({});
  chosen.ChooseAgain();
  EXPECT_EQ(Current(), std::pair(0, -1));
}

TEST_F(CurrentRowsTest, GiveWayToTheOneThatTheFormChoseItself) {
  headed.Row(4);
  const CurrentRows chosen(form);
  Fill({10, 20, 30});
  headed.Row(2);
  chosen.ChooseAgain();
  EXPECT_EQ(headed.Row(), 2);
}

TEST_F(CurrentRowsTest, StayWhereNothingWasFilledAgain) {
  headed.Row(3);
  const CurrentRows chosen(form);
  chosen.ChooseAgain();
  EXPECT_EQ(headed.Row(), 3);
}

// The first row that a grid gets has been chosen by nobody.
TEST_F(CurrentRowsTest, AreNoHeadings) {
  Fill({});
  ASSERT_EQ(headed.Row(), 0);
  const CurrentRows chosen(form);
  Fill({7, 0});
  chosen.ChooseAgain();
  EXPECT_EQ(Current(), std::pair(1, 0));
}

}  // namespace
}  // namespace quorvane::test
