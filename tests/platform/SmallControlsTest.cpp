#include "platform/controls/Animation.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/ItemList.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

class SmallControlsTest : public testing::Test {
 protected:
  Form form{"frmX"};
  int raised = 0;
  std::function<void()> count = [this] { ++raised; };  ///< for an event
};

TEST_F(SmallControlsTest, ACheckBoxClicksOnAnotherValueOnly) {
  CheckBox box(form, "chkX");
  box.Click = count;
  box.Value(0);
  EXPECT_EQ(raised, 0);
  box.Value(1);
  box.Value(1);
  EXPECT_EQ(raised, 1);
  EXPECT_EQ(ErrorOf([&] { box.Value(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { box.Value(-1); }), 380);
  EXPECT_EQ(box.Value(), 1);
}

TEST_F(SmallControlsTest, ATextBoxTellsAnotherTextOnly) {
  TextBox box(form, "txtX");
  box.Change = count;
  box.Text("a");
  box.Text("a");
  EXPECT_EQ(raised, 1);
}

TEST_F(SmallControlsTest, AKeyPassesKeyPressBeforeTheText) {
  TextBox box(form, "txtX");
  std::vector<int> keys;
  box.KeyPress = [&keys](int& key) {
    keys.push_back(key);
    if (key == 'x') key = 0;
    if (key == 'a') key = 0xF1;
  };
  for (const auto* key : {"x", "a", "é", "b"}) box.TypeKey(key);
  EXPECT_EQ(keys, (std::vector<int>{'x', 'a', 0xE9, 'b'}));
  EXPECT_EQ(box.Text(), "ñéb");
}

TEST_F(SmallControlsTest, ATabStripSelectsAndClicks) {
  TabStrip tabs(form, "tabX");
  tabs.Click = count;
  EXPECT_EQ(tabs.SelectedTab(), 0);
  for (const auto* caption : {"Uno", "Dos", "Tres"}) tabs.AddTab(caption);
  EXPECT_EQ(tabs.SelectedTab(), 1);
  EXPECT_EQ(raised, 0);
  tabs.SelectedTab(3);
  EXPECT_EQ(raised, 1);
  EXPECT_EQ(ErrorOf([&] { tabs.SelectedTab(0); }), 380);
  EXPECT_EQ(ErrorOf([&] { tabs.SelectedTab(4); }), 380);
  EXPECT_EQ(tabs.TabCaption(2), "Dos");
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(tabs.TabCaption(4)); }), 381);
  EXPECT_EQ(ErrorOf([&] { tabs.RemoveTab(0); }), 381);
}

TEST_F(SmallControlsTest, RemovingATabKeepsTheSelectedOne) {
  TabStrip tabs(form, "tabX");
  for (const auto* caption : {"Uno", "Dos", "Tres"}) tabs.AddTab(caption);
  tabs.SelectedTab(3);
  tabs.RemoveTab(1);
  EXPECT_EQ(tabs.SelectedTab(), 2);
  EXPECT_EQ(tabs.TabCaption(2), "Tres");
  tabs.RemoveTab(2);
  EXPECT_EQ(tabs.SelectedTab(), 1);
  tabs.RemoveTab(1);
  EXPECT_EQ(tabs.SelectedTab(), 0);
}

TEST_F(SmallControlsTest, OnAHiddenOrDisabledFrameNothingCanBeUsed) {
  Frame outer(form, "fraX");
  Frame inner(form, "fraY", &outer);
  const CommandButton button(form, "cmdX", &inner);
  EXPECT_TRUE(button.Usable());
  outer.Enabled(false);
  EXPECT_TRUE(button.Shown());
  EXPECT_FALSE(button.Usable());
  outer.Enabled(true);
  outer.Visible(false);
  EXPECT_FALSE(button.Shown());
  EXPECT_FALSE(button.Usable());
  EXPECT_TRUE(button.Visible()) << "its own flag stays";
  outer.Visible(true);
  form.Enabled(false);
  EXPECT_FALSE(button.Usable());
}

TEST_F(SmallControlsTest, MeasuresBelowZeroAreRefused) {
  Label label(form, "lblX");
  label.Place(-10, 20, 30, 40);
  EXPECT_EQ(label.Left(), -10);
  EXPECT_EQ(ErrorOf([&] { label.Width(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { label.Height(-1); }), 380);
  EXPECT_EQ(label.Width(), 30);
}

TEST_F(SmallControlsTest, LayersGoBeforeAndBehindAllOthers) {
  Label one(form, "lblUno");
  Label two(form, "lblDos");
  one.ToFront();
  EXPECT_GT(one.Layer(), two.Layer());
  two.ToFront();
  EXPECT_GT(two.Layer(), one.Layer());
  two.ToBack();
  EXPECT_LT(two.Layer(), one.Layer());
}

TEST_F(SmallControlsTest, AnAnimationIsToldWhatToPlay) {
  Animation animation(form, "aniX");
  animation.Open("C:\\avis\\filecopy.avi");
  animation.Play();
  EXPECT_TRUE(animation.Playing());
  animation.Stop();
  EXPECT_FALSE(animation.Playing());
  EXPECT_EQ(animation.File(), "C:\\avis\\filecopy.avi");
}

TEST_F(SmallControlsTest, AnUnchangedPropertyIsNothingToShow) {
  Label label(form, "lblX");
  label.Caption("a");
  const auto before = label.Revision();
  label.Caption("a");
  EXPECT_EQ(label.Revision(), before);
  label.Caption("b");
  EXPECT_NE(label.Revision(), before);
}

class ItemListTest : public SmallControlsTest {
 protected:
  ItemListTest() {
    list.AddItem("uno", 10);
    list.AddItem("dos", 20);
    list.AddItem("tres");
    list.Click = count;
  }

  ComboBox list{form, "cboX"};
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
  EXPECT_EQ(raised, 2);
  EXPECT_EQ(list.Text(), "dos");
  EXPECT_EQ(list.SelectedData(), 20);
  list.ListIndex(-1);
  EXPECT_EQ(raised, 3);
  EXPECT_EQ(list.Text(), "");
}

TEST_F(ItemListTest, AnEntryThatDoesntExist) {
  EXPECT_EQ(ErrorOf([&] { list.ListIndex(3); }), 380);
  EXPECT_EQ(ErrorOf([&] { list.ListIndex(-2); }), 380);
  EXPECT_EQ(ErrorOf([&] { list.RemoveItem(3); }), 380);
  EXPECT_EQ(ErrorOf([&] { list.RemoveItem(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(list.List(3)); }), 381);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(list.ItemData(-1)); }), 381);
  EXPECT_EQ(raised, 0);
}

TEST_F(ItemListTest, ClearingLeavesNothingSelectedAndClicksNothing) {
  list.ListIndex(0);
  list.Clear();
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(raised, 1);
  EXPECT_EQ(ErrorOf([&] { list.ListIndex(0); }), 380);
}

TEST_F(ItemListTest, RemovingTheSelectedEntryLeavesNothingSelected) {
  list.ListIndex(1);
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.List(1), "tres");
  EXPECT_EQ(raised, 1);
}

TEST_F(ItemListTest, TheSelectionFollowsItsEntry) {
  list.ListIndex(1);
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(list.Text(), "dos");
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_EQ(raised, 1);
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
