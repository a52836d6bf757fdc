// Who signs in, and as whom.

#include <QTest>
#include <gtest/gtest.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/zendria/LoginUser.h"
#include "apps/zendria/PasswordDialog.h"
#include "apps/zendria/SchoolPlace.h"
#include "apps/zendria/SignInDelay.h"
#include "tests/support/Opened.h"
#include "tests/support/ServerSchools.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using zendria::PasswordDialog;
using zendria::User;

constexpr auto kSecret = "alcachofas azules";
constexpr auto kWrong = "El usuario o la contraseña no son correctos.";

class PasswordsTest : public HostTest {
 protected:
  PasswordsTest() { Set(2, kSecret); }

  void Set(std::int32_t user, const char* password) {
    Opened<sqlite::SqliteConnection> school(school_.Path(), "");
    UserPasswords(school).Set(user, password);
  }
  void OnPassword(const std::function<void(PasswordDialog&)>& step) {
    robot_.OnDialog<PasswordDialog>("contraseña", step);
  }
  /// What is told to who types that, as he sees it; the dialog stays.
  static QString Try(PasswordDialog& dialog, const QString& name, const QString& password) {
    dialog.Name().setText(name);
    QTest::keyClicks(&dialog.Password(), password);
    QTest::keyClick(&dialog.Password(), Qt::Key_Return);
    return dialog.Answer().text();
  }
};

TEST_F(PasswordsTest, TheNameAndItsPasswordComeIn) {
  OnPassword([](PasswordDialog& dialog) {
    EXPECT_TRUE(dialog.Name().hasFocus());
    EXPECT_EQ(dialog.Password().echoMode(), QLineEdit::Password);
    EXPECT_FALSE(dialog.EnterButton().isEnabled());
    EXPECT_EQ(Try(dialog, "ana ruiz", kSecret), "");
  });
  EXPECT_TRUE(window_->OpenSchool(SchoolFile()));
  EXPECT_EQ(LabelText("usuario"), "Ana Ruiz");
  EXPECT_FALSE(window_->windowTitle().contains("sin contraseñas"));
  EXPECT_FALSE(Kept().contains("alcachofas"));

  // The next time only the password is wanting; another may come in his place.
  OnPassword([](PasswordDialog& dialog) {
    EXPECT_EQ(dialog.Name().text(), "Ana Ruiz");
    EXPECT_TRUE(dialog.Password().hasFocus());
    QTest::keyClicks(&dialog.Password(), kSecret);
    QTest::keyClick(&dialog.Password(), Qt::Key_Return);
  });
  Trigger("cambiarUsuario");
}

TEST_F(PasswordsTest, NothingTellsWhetherNameOrPasswordWasWrong) {
  OnPassword([](PasswordDialog& dialog) {
    EXPECT_EQ(Try(dialog, "Ana Ruiz", "alcachofas verdes"), kWrong);
    EXPECT_EQ(dialog.Password().text(), "");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Try(dialog, "Nadie", kSecret), kWrong);
    dialog.reject();
  });
  EXPECT_FALSE(window_->OpenSchool(SchoolFile()));
  // Who has no password doesn't come in, the administrator least of all.
  OnPassword([this](PasswordDialog& dialog) {
    zendria::SignInDelay(preferences_, SchoolFile()).Succeeded();
    EXPECT_EQ(dialog.Name().text(), "Dirección") << "asked for by his number, but not let in by it";
    EXPECT_EQ(Try(dialog, "Dirección", ""), kWrong);
    dialog.reject();
  });
  EXPECT_FALSE(window_->OpenSchool(SchoolFile(), 1));
  OnPassword([](PasswordDialog& dialog) {
    EXPECT_EQ(dialog.Name().text(), "") << "a number that nobody has is no news either";
    dialog.reject();
  });
  EXPECT_FALSE(window_->OpenSchool(SchoolFile(), 99));
  EXPECT_FALSE(window_->HasSchool());
}

TEST_F(PasswordsTest, ASchoolThatCantBeReadIsNoWrongPassword) {
  std::string text;
  OnPassword([this, &text](PasswordDialog& dialog) {
    school_.Sql("ALTER TABLE ClaveUsuario RENAME COLUMN Clave TO Otra");
    for (int time = 0; time < 3; ++time) {
      ReadNotice(text);
      EXPECT_EQ(Try(dialog, "Ana Ruiz", kSecret), "");
      dialog.Password().clear();
    }
    EXPECT_TRUE(dialog.EnterButton().isEnabled());
    school_.Sql("ALTER TABLE ClaveUsuario RENAME COLUMN Otra TO Clave");
    Try(dialog, "Ana Ruiz", kSecret);
    if (dialog.isVisible()) dialog.reject();
  });
  EXPECT_TRUE(window_->OpenSchool(SchoolFile()));
  EXPECT_THAT(text, StartsWith("Error -2147467259: no such column: Clave"));
}

TEST_F(PasswordsTest, AfterThreeWrongOnesOneWaitsAlsoInTheNextWindow) {
  OnPassword([](PasswordDialog& dialog) {
    for (int time = 0; time < 2; ++time) EXPECT_EQ(Try(dialog, "Ana Ruiz", "no es esta"), kWrong);
    EXPECT_TRUE(dialog.EnterButton().isEnabled());
    const auto told = Try(dialog, "Ana Ruiz", "tampoco es esta");
    EXPECT_TRUE(told.startsWith(QString(kWrong) + " Espere ")) << told.toStdString();
    EXPECT_FALSE(dialog.EnterButton().isEnabled());
    Try(dialog, "Ana Ruiz", kSecret);
    EXPECT_TRUE(dialog.isVisible()) << "not even with the right one";
    dialog.reject();
  });
  EXPECT_FALSE(window_->OpenSchool(SchoolFile()));
  UseScreens(zendria::PendingScreens());
  OnPassword([](PasswordDialog& dialog) {
    EXPECT_TRUE(dialog.Answer().text().startsWith("Ha habido demasiados intentos. Espere "));
    Try(dialog, "Ana Ruiz", kSecret);
    EXPECT_TRUE(dialog.isVisible());
    dialog.reject();
  });
  EXPECT_FALSE(window_->OpenSchool(SchoolFile()));
}

TEST_F(PasswordsTest, TheWaitGrowsAndPasses) {
  auto now = QDateTime::currentDateTimeUtc();
  zendria::SignInDelay delay(preferences_, "una", [&now] { return now; });
  const auto left = [&delay] { return delay.Left().count(); };
  for (const auto wait : {0, 0, 30, 60, 120, 240, 480, 900, 900}) {
    delay.Failed();
    EXPECT_EQ(left(), wait);
    now = now.addSecs(wait);
    EXPECT_EQ(left(), 0);
  }
  now = now.addDays(-3000);
  EXPECT_EQ(left(), 900) << "a clock that was put back";
  now = now.addSecs(900);
  EXPECT_EQ(left(), 0) << "and goes on from there";
  zendria::SignInDelay other(preferences_, "otra", [&now] { return now; });
  EXPECT_EQ(other.Left().count(), 0);
  delay.Succeeded();
  EXPECT_EQ(left(), 0);
  EXPECT_FALSE(Kept().contains("fallos"));
}

TEST_F(PasswordsTest, TheCentreIsChosenHereToo) {
  school_.Sql("INSERT INTO Centro_TipoEnsenanza (CodCentro, CodTipoEnsenanza) VALUES (7,4)");
  OnPassword([](PasswordDialog& dialog) {
    auto* const box = dialog.findChild<QComboBox*>("centro");
    EXPECT_TRUE(box->isVisible());
    box->setCurrentIndex(box->count() - 1);
    EXPECT_EQ(Try(dialog, "Ana Ruiz", kSecret), "");
  });
  EXPECT_TRUE(window_->OpenSchool(SchoolFile()));
  EXPECT_TRUE(LabelText("centro").startsWith("Centro 7"));
}

using SignInTest = HostTest;

TEST_F(SignInTest, ASchoolWithoutPasswordsShowsItAndSoDoesOneWithRulesOfSomebodys) {
  const auto title = [this] {
    EXPECT_TRUE(window_->OpenSchool(SchoolFile(), 2));
    return window_->windowTitle().toStdString();
  };
  EXPECT_THAT(title(),
              AllOf(HasSubstr(" (sin contraseñas) — Ana Ruiz — "), Not(HasSubstr("ajenas"))));
  school_.Sql("CREATE UNIQUE INDEX ajeno ON BloqueoPte (CodMatDet)");
  EXPECT_THAT(title(), HasSubstr(" (con reglas ajenas) (sin contraseñas) — Ana"));
}

TEST_F(SignInTest, TheTitleFollowsThePasswordsThatAreSetMeanwhile) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 2));
  Opened<sqlite::SqliteConnection> school(school_.Path(), "");
  UserPasswords passwords(school);
  passwords.Set(2, kSecret);
  window_->YearAction().toggle();
  EXPECT_FALSE(window_->windowTitle().contains("sin contraseñas"));
  passwords.Remove(2);
  window_->YearAction().toggle();
  EXPECT_TRUE(window_->windowTitle().contains(" (sin contraseñas)"));
}

TEST_F(SignInTest, WhoCameLastIsMarked) {
  SignIn("gil");
  ASSERT_TRUE(window_->OpenSchool(SchoolFile()));
  UseScreens(zendria::PendingScreens());
  SignIn();
  ASSERT_TRUE(window_->OpenSchool(SchoolFile()));
  EXPECT_EQ(LabelText("usuario"), "Luis Gil");
}

TEST(LoginUserTest, ALoginIsTheUserOfItsName) {
  const std::vector<User> users{{1, "Dirección", 0, true}, {2, "José", 3, false},
                                {3, "jose", 3, false},     {4, "ana", 3, false},
                                {5, "Eva", 3, false},      {6, "EVA", 3, false}};
  const auto id = [&users](const char* login) {
    const auto user = zendria::UserOfLogin(users, login);
    return user ? user->id : 0;
  };
  for (const auto& [login, user] :
       {std::pair{"direccion", 1}, std::pair{"jose", 3}, std::pair{"José", 2}, std::pair{"Eva", 5},
        std::pair{"CENTRO\\Ana", 4}})
    EXPECT_EQ(id(login), user) << login;
  // The second and third are either of two.
  for (const auto* const nobodys : {"zendria", "Jose", "eva", "", "CENTRO\\"})
    EXPECT_EQ(id(nobodys), 0) << nobodys;
}

class LoginTest : public HostTest {
 protected:
  void SetUp() override {
    if (!OnServer()) GTEST_SKIP() << "no server";
    place_ = zendria::OdbcPlace(QString::fromStdString(ServerString(school_.Path())));
  }
  void Call(int user) {
    school_.Sql("UPDATE Usuario SET Nombre='Zendria' WHERE IDUsuario=" + std::to_string(user));
  }
  QString place_;
};

TEST_F(LoginTest, OnAServerTheLoginIsTheUserAndNobodyElse) {
  Call(2);
  robot_.OnDialog<zendria::SignInDialog>("entrada", [](auto& dialog) {
    EXPECT_EQ(dialog.List().List().count(), 1) << "his centre is asked for, and he isn't";
    QTest::keyClick(&dialog.List().Field(), Qt::Key_Return);
  });
  EXPECT_TRUE(window_->OpenSchool(place_));
  school_.Sql("DELETE FROM Centro_TipoEnsenanza WHERE CodCentro=2");
  EXPECT_TRUE(window_->OpenSchool(place_));
  EXPECT_TRUE(robot_.unexpected.empty()) << "nothing is asked";
  EXPECT_EQ(LabelText("usuario"), "Zendria");
  EXPECT_FALSE(window_->windowTitle().contains("sin contraseñas"));
  EXPECT_THAT(Refusal(place_), StartsWith("En un servidor se entra como uno mismo"));
  EXPECT_TRUE(window_->OpenSchool(place_, 2));
}

TEST_F(LoginTest, OnAServerAnAdministratorChooses) {
  Call(1);
  SignIn("gil");
  EXPECT_TRUE(window_->OpenSchool(place_));
  EXPECT_EQ(LabelText("usuario"), "Luis Gil");
  // And goes on choosing: it is the login that may, not who was chosen.
  SignIn("ruiz");
  Trigger("cambiarUsuario");
  EXPECT_EQ(LabelText("usuario"), "Ana Ruiz");
  EXPECT_TRUE(window_->OpenSchool(place_, 3));
}

TEST_F(LoginTest, OnAServerALoginThatIsNobodyIsRefused) {
  EXPECT_THAT(Refusal(place_), HasSubstr("«zendria» no es ninguno de los usuarios"));
}

}  // namespace
}  // namespace quorvane::test
