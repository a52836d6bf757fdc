#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/ItemList.h"
#include "platform/controls/ListBox.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

class ItemListTest : public testing::Test {
 protected:
  ItemListTest() {
    list.AddItem("uno", 10);
    list.AddItem("dos", 20);
    list.AddItem("tres");
    list.Click = [this] { ++clicks; };
  }

  Form form{"frmX"};
  ComboBox list{form, "cboX"};
  int clicks = 0;
};

TEST_F(ItemListTest, HasNothingSelectedAtFirst) {
  EXPECT_EQ(list.ListCount(), 3);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), "");
  EXPECT_EQ(list.ItemData(2), 0);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(list.SelectedData()); }), 381);
}

TEST_F(ItemListTest, SettingTheIndexClicksAlsoWhenItStands) {
  list.ListIndex(1);
  list.ListIndex(1);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(list.Text(), "dos");
  EXPECT_EQ(list.SelectedData(), 20);
  list.ListIndex(-1);
  EXPECT_EQ(clicks, 3);
  EXPECT_EQ(list.Text(), "");
}

TEST_F(ItemListTest, AnEntryThatDoesntExist) {
  EXPECT_EQ(ErrorOf([&] { list.ListIndex(3); }), 380);
  EXPECT_EQ(ErrorOf([&] { list.ListIndex(-2); }), 380);
  EXPECT_EQ(ErrorOf([&] { list.RemoveItem(3); }), 380);
  EXPECT_EQ(ErrorOf([&] { list.RemoveItem(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(list.List(3)); }), 381);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(list.ItemData(-1)); }), 381);
  EXPECT_EQ(clicks, 0);
}

TEST_F(ItemListTest, ClearingLeavesNothingSelectedAndClicksNothing) {
  list.ListIndex(0);
  list.Clear();
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(ErrorOf([&] { list.ListIndex(0); }), 380);
}

TEST_F(ItemListTest, RemovingTheSelectedEntryLeavesNothingSelected) {
  list.ListIndex(1);
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.List(1), "tres");
  EXPECT_EQ(clicks, 1);
}

TEST_F(ItemListTest, TheSelectionFollowsItsEntry) {
  list.ListIndex(1);
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(list.Text(), "dos");
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(clicks, 1);
}

TEST_F(ItemListTest, TheKindsTellTheirNames) {
  const ListBox box(form, "lstX");
  EXPECT_EQ(list.Kind(), "ComboBox");
  EXPECT_EQ(box.Kind(), "ListBox");
}

TEST_F(ItemListTest, ShowsThatItHasChanged) {
  const auto before = list.Revision();
  list.ListIndex(0);
  EXPECT_NE(list.Revision(), before);
}

}  // namespace
}  // namespace quorvane::test
