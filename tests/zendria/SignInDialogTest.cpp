#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/SignInDialog.h"

namespace quorvane::zendria {
namespace {

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

}  // namespace
}  // namespace quorvane::zendria
