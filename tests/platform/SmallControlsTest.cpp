#include "platform/controls/Animation.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

class SmallControlsTest : public testing::Test {
 protected:
  Form form{"frmX"};
};

TEST_F(SmallControlsTest, ACheckBoxClicksOnAnotherValueOnly) {
  CheckBox box(form, "chkX");
  int clicks = 0;
  box.Click = [&clicks] { ++clicks; };
  box.Value(0);
  EXPECT_EQ(clicks, 0);
  box.Value(1);
  box.Value(1);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(ErrorOf([&] { box.Value(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { box.Value(-1); }), 380);
  EXPECT_EQ(box.Value(), 1);
}

TEST_F(SmallControlsTest, ATextBoxTellsAnotherTextOnly) {
  TextBox box(form, "txtX");
  int changes = 0;
  box.Change = [&changes] { ++changes; };
  box.Text("a");
  box.Text("a");
  EXPECT_EQ(changes, 1);
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
  int clicks = 0;
  tabs.Click = [&clicks] { ++clicks; };
  EXPECT_EQ(tabs.SelectedTab(), 0);
  tabs.AddTab("Uno");
  tabs.AddTab("Dos");
  tabs.AddTab("Tres");
  EXPECT_EQ(tabs.SelectedTab(), 1);
  EXPECT_EQ(clicks, 0);
  tabs.SelectedTab(3);
  EXPECT_EQ(clicks, 1);
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

}  // namespace
}  // namespace quorvane::test
