#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/PersonSearchDialog.h"
#include "apps/zendria/SignInDialog.h"
#include "apps/zendria/TextFolding.h"

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

std::vector<User> Users() {
  return {{7, "Ana Ruiz", 3, false}, {1, "Dirección", 0, true}, {9, "Luis Gil", 3, false}};
}

class SignInDialogTest : public testing::Test {
 protected:
  SignInDialogTest() : dialog_("IES Prueba", Users()) { dialog_.show(); }

  void Key(Qt::Key key) { QTest::keyClick(&dialog_.List().Field(), key); }

  SignInDialog dialog_;
};

TEST_F(SignInDialogTest, ShowsNamesAndProfiles) {
  ASSERT_EQ(dialog_.List().List().count(), 3);
  EXPECT_EQ(dialog_.List().List().item(0)->text(),
            "Ana Ruiz  ·  perfil 3 (sus tutorías y materias)");
  EXPECT_EQ(dialog_.List().List().item(1)->text(),
            "Dirección  ·  perfil 0 (sin restricciones), administrador");
}

TEST_F(SignInDialogTest, TypeAheadAndEnterSignIn) {
  QTest::keyClicks(&dialog_.List().Field(), "direccion");
  Key(Qt::Key_Return);
  const auto user = dialog_.Chosen();
  ASSERT_TRUE(user);
  EXPECT_EQ(user->id, 1);
  EXPECT_EQ(user->profile, 0);
}

TEST_F(SignInDialogTest, ProfilesAreSearchedToo) {
  QTest::keyClicks(&dialog_.List().Field(), "administrador");
  EXPECT_EQ(dialog_.List().Chosen(), 1);
}

TEST_F(SignInDialogTest, EscapeSignsNobodyIn) {
  Key(Qt::Key_Escape);
  EXPECT_FALSE(dialog_.Chosen());
}

TEST(SignInDialogWithoutUsersTest, CannotBeAccepted) {
  SignInDialog dialog("IES Vacío", {});
  dialog.show();
  QTest::keyClick(&dialog.List().Field(), Qt::Key_Return);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_FALSE(dialog.Chosen());
}

TEST(TextFoldingTest, CaseAndAccentsDoNotCount) {
  EXPECT_EQ(Folded("ÁLVAREZ Núñez, Zoë"), Folded("alvarez nunez, zoe"));
}

TEST(TextFoldingTest, EveryWordHasToStandSomewhere) {
  const auto text = Folded("Gómez Peña, Íñigo");
  EXPECT_TRUE(HoldsWords(text, Folded("iñi gom")));
  EXPECT_TRUE(HoldsWords(text, Folded("pena")));
  EXPECT_FALSE(HoldsWords(text, Folded("gomez luis")));
}

TEST(TextFoldingTest, NothingWantedIsAlwaysThere) {
  EXPECT_TRUE(HoldsWords("", ""));
  EXPECT_TRUE(HoldsWords("a", "  "));
}

}  // namespace
}  // namespace quorvane::zendria
