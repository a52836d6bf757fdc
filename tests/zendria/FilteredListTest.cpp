#include <QTest>
#include <gtest/gtest.h>
#include <tuple>

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

TEST(PersonSearchKeysTest, NarrowChooseAndCloseIt) {
  using Keys = std::vector<Qt::Key>;
  for (const auto& [typed, left, keys, person] :
       {std::tuple{"", 3, Keys{Qt::Key_Return}, 1}, std::tuple{"", 3, Keys{Qt::Key_Escape}, 0},
        // Without regard to accents, and with the arrows.
        std::tuple{"GOMEZ in", 1, Keys{Qt::Key_Return}, 2},
        std::tuple{"gomez", 2, Keys{Qt::Key_Down, Qt::Key_Return}, 3}}) {
    SCOPED_TRACE(std::string(typed) + ", person " + std::to_string(person));
    PersonSearchDialog dialog(People(), "Docente");
    dialog.show();
    QTest::keyClicks(&dialog.People().Field(), typed);
    EXPECT_EQ(dialog.People().List().count(), left);
    for (const auto key : keys) QTest::keyClick(&dialog.People().Field(), key);
    EXPECT_EQ(dialog.Person(), person);
    EXPECT_FALSE(dialog.isVisible());
  }
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
  const auto& list = dialog_.List().List();
  ASSERT_EQ(list.count(), 3);
  EXPECT_EQ(list.item(0)->text(), "Ana Ruiz  ·  perfil 3 (sus tutorías y materias)");
  EXPECT_EQ(list.item(1)->text(), "Dirección  ·  perfil 0 (sin restricciones), administrador");
}

TEST_F(SignInDialogTest, TypeAheadOfNamesAndProfilesAndEnterSignIn) {
  for (const auto* const typed : {"administrador", "direccion"}) {
    dialog_.List().Field().clear();
    dialog_.List().List().setCurrentRow(0);
    QTest::keyClicks(&dialog_.List().Field(), typed);
    EXPECT_EQ(dialog_.List().Chosen(), 1) << typed;
  }
  Key(Qt::Key_Return);
  const auto user = dialog_.Chosen();
  ASSERT_TRUE(user);
  EXPECT_EQ(std::pair(user->id, user->profile), std::pair(1, 0));
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
