// A school behind a connection string, in the host.

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/ConnectDialog.h"
#include "apps/zendria/SchoolPlace.h"
#include "frame/cConfiguracion.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using zendria::ConnectDialog;

class OdbcSchoolTest : public HostTest {
 protected:
  [[nodiscard]] QString String(const QString& more = "") const {
    return "Driver=SQLite3;Database=" + SchoolFile() + more;
  }
};

TEST_F(OdbcSchoolTest, OpensAndWorksAsOneInAFileDoes) {
  ASSERT_TRUE(window_->OpenSchool(zendria::OdbcPlace(String()), 2));
  EXPECT_EQ(LabelText("usuario"), "Ana Ruiz");
  EXPECT_EQ(LabelText("fichero"), String());
  robot_.On("frmPendientes", [](qt::FormWindow& form) {
    EXPECT_FALSE(cConfiguracion::Instancia().SQLServer);
    EXPECT_NE(cConfiguracion::Instancia().conLocalCentro, nullptr);
    Robot::Click(form, "cmdCancelar");
  });
  Play(123);
}

TEST_F(OdbcSchoolTest, IsRememberedWithoutItsPassword) {
  ASSERT_TRUE(window_->OpenSchool(zendria::OdbcPlace(String(";UID=ana;PWD=secreto")), 2));
  EXPECT_EQ(preferences_.RecentSchools(), QStringList(zendria::OdbcPlace(String(";UID=ana"))));
  EXPECT_EQ(LabelText("fichero"), String(";UID=ana"));
  EXPECT_FALSE(window_->windowTitle().contains("secreto"));
  const auto kept = Kept();
  EXPECT_FALSE(kept.contains("secreto"));
  EXPECT_TRUE(kept.contains("UID=ana"));
}

TEST_F(OdbcSchoolTest, TheRecentOneAsksForThePassword) {
  const auto place = zendria::OdbcPlace(String(";UID=ana"));
  robot_.OnDialog<ConnectDialog>("conectar", [this](auto& connect) {
    EXPECT_EQ(connect.String().text(), String(";UID=ana"));
    EXPECT_TRUE(connect.Password().hasFocus());
    EXPECT_EQ(connect.Password().echoMode(), QLineEdit::Password);
    QTest::keyClicks(&connect.Password(), "a;b}c");
    EXPECT_EQ(connect.Address().Text(), (String(";UID=ana") + ";PWD={a;b}}c}").toStdString());
    QTest::keyClick(&connect.Password(), Qt::Key_Return);
  });
  EXPECT_TRUE(window_->OpenSchool(place, 2));
  EXPECT_EQ(preferences_.RecentSchools(), QStringList(place));
  EXPECT_FALSE(Kept().contains("b}c"));
}

TEST_F(OdbcSchoolTest, GivingThePasswordUpOpensNothing) {
  GiveUp("conectar");
  EXPECT_FALSE(window_->OpenSchool(zendria::OdbcPlace(String(";UID=ana")), 2));
  EXPECT_FALSE(window_->HasSchool());
  EXPECT_TRUE(preferences_.RecentSchools().isEmpty());
}

TEST_F(OdbcSchoolTest, IsConnectedFromTheWelcomePageAndTheMenu) {
  const auto connect = [this] {
    robot_.OnDialog<ConnectDialog>("conectar", [this](auto& dialog) {
      const auto& button = Button(dialog, "Co&nectar");
      dialog.template findChild<QCheckBox*>("aMano")->setChecked(true);
      dialog.String().clear();
      EXPECT_FALSE(button.isEnabled());
      QTest::keyClicks(&dialog.String(), String());
      EXPECT_TRUE(button.isEnabled());
      QTest::keyClick(&dialog.String(), Qt::Key_Return);
    });
    GiveUp("entrada");
  };
  connect();
  window_->findChild<QPushButton*>("conectarEscuela")->click();
  connect();
  Trigger("conectarServidor");
}

TEST_F(OdbcSchoolTest, WhatWasTypedIsThereAgainAfterARefusal) {
  const auto connect = [this](const std::function<void(ConnectDialog&)>& step) {
    InDialog<ConnectDialog>("conectarServidor", "conectar", [step](auto& dialog) {
      step(dialog);
      dialog.reject();
    });
  };
  connect([](ConnectDialog& dialog) {
    dialog.findChild<QCheckBox*>("aMano")->setChecked(true);
    dialog.String().setText("DSN=no_hay_tal;UID=ana;PWD=secreto");
    QTest::keyClick(&dialog.String(), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
  });
  connect([](ConnectDialog& dialog) {
    EXPECT_EQ(dialog.String().text(), "DSN=no_hay_tal;UID=ana") << "without its password";
  });
}

TEST_F(OdbcSchoolTest, SaysWhyItCantBeReachedWithoutThePassword) {
  EXPECT_THAT(Refusal(zendria::OdbcPlace("DSN=no_hay_tal;UID=ana;PWD=secreto"), 2),
              AllOf(HasSubstr("odbcinst -q -d"), Not(HasSubstr("secreto"))));
  EXPECT_TRUE(preferences_.RecentSchools().isEmpty());
}

TEST_F(OdbcSchoolTest, StandsInTheListOfRecentOnesByItsName) {
  const auto place = zendria::OdbcPlace("Driver=FreeTDS;Server=escuela;Database=Centro;UID=ana");
  preferences_.AddRecentSchool(place + ";PWD=secreto");
  UseScreens(zendria::PendingScreens());
  auto* const list = window_->findChild<QListWidget*>("recientes");
  ASSERT_EQ(list->count(), 1);
  EXPECT_EQ(list->item(0)->text(),
            "Centro  ·  Driver=FreeTDS;Server=escuela;Database=Centro;UID=ana");
  EXPECT_EQ(zendria::PlaceTitle("/casa/mi escuela.sqlite"), "mi escuela.sqlite  ·  /casa");
}

}  // namespace
}  // namespace quorvane::test
