#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/PersonSearchDialog.h"

namespace quorvane::zendria {
namespace {

std::vector<FilteredList::Entry> People() {
  return {{1, "Álvarez Ruiz, Ana", {}}, {2, "Gómez Peña, Íñigo", {}}, {3, "Gómez Vega, Eva", {}}};
}

/// The dialog as `exec` shows it, while the test types into it.
class PersonSearchDialogTest : public testing::Test {
 protected:
  PersonSearchDialogTest() : dialog_(People(), "Docente") {
    dialog_.show();
    dialog_.People().Field().setFocus();
  }

  void Key(Qt::Key key) { QTest::keyClick(&dialog_.People().Field(), key); }
  void Type(const QString& text) { QTest::keyClicks(&dialog_.People().Field(), text); }

  PersonSearchDialog dialog_;
};

TEST_F(PersonSearchDialogTest, NamesTheKindInItsTitle) {
  EXPECT_EQ(dialog_.windowTitle(), "Buscar: Docente");
}

TEST_F(PersonSearchDialogTest, EnterChoosesTheFirstAtOnce) {
  Key(Qt::Key_Return);
  EXPECT_EQ(dialog_.Person(), 1);
  EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(PersonSearchDialogTest, TypingNarrowsWithoutRegardToAccentsAndEnterChooses) {
  Type("GOMEZ in");
  EXPECT_EQ(dialog_.People().List().count(), 1);
  Key(Qt::Key_Return);
  EXPECT_EQ(dialog_.Person(), 2);
}

TEST_F(PersonSearchDialogTest, ArrowsMoveWhileTyping) {
  Type("gomez");
  Key(Qt::Key_Down);
  Key(Qt::Key_Return);
  EXPECT_EQ(dialog_.Person(), 3);
}

TEST_F(PersonSearchDialogTest, EscapeChoosesNobody) {
  Key(Qt::Key_Escape);
  EXPECT_EQ(dialog_.Person(), 0);
  EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(PersonSearchDialogTest, NobodyIsChosenWhereNobodyPasses) {
  Type("nadie");
  EXPECT_EQ(dialog_.People().List().count(), 0);
  Key(Qt::Key_Return);
  EXPECT_TRUE(dialog_.isVisible());
  EXPECT_EQ(dialog_.Person(), 0);
}

TEST_F(PersonSearchDialogTest, DoubleClickChooses) {
  auto& list = dialog_.People().List();
  const auto at = list.visualItemRect(list.item(2)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, at);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, at);
  EXPECT_EQ(dialog_.Person(), 3);
}

TEST_F(PersonSearchDialogTest, TheChosenOneStaysChosenWhileItPasses) {
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  Type("gomez");
  EXPECT_EQ(dialog_.People().Chosen(), 3);
}

}  // namespace
}  // namespace quorvane::zendria
