#include <QComboBox>
#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/SignInDialog.h"
#include "frame/cConfiguracion.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

class CentresTest : public HostTest {
 protected:
  CentresTest() { school_.Sql("INSERT INTO Centro_TipoEnsenanza VALUES (4,7)"); }

  /// The user's next sign-in, in which he picks the centre of that place.
  void SignInAt(
      int place, const std::function<void(QComboBox&)>& look = [](QComboBox&) {}) {
    robot_.OnDialog<zendria::SignInDialog>("entrada", [place, look](auto& dialog) {
      auto& box = dialog.CentreBox();
      look(box);
      box.setFocus();
      QTest::keyClick(&box, Qt::Key_Home);
      for (int i = 0; i < place; ++i) QTest::keyClick(&box, Qt::Key_Down);
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
  }
  /// The kinds of teaching that the register then offers.
  std::vector<std::string> KindsOffered() {
    std::vector<std::string> kinds;
    robot_.On("frmPendientes", [&kinds](qt::FormWindow& window) {
      const auto* const box = dynamic_cast<QComboBox*>(window.Widget("cboTEnsenanza"));
      for (int i = 0; i < box->count(); ++i) kinds.push_back(box->itemText(i).toStdString());
      window.close();
    });
    window_->OpenNode(123);
    return kinds;
  }
};

using Kinds = std::vector<std::string>;

TEST_F(CentresTest, TheChosenCentreIsTheSessions) {
  SignInAt(2, [](QComboBox& box) {
    ASSERT_TRUE(box.isVisible());
    ASSERT_EQ(box.count(), 3);
    EXPECT_EQ(box.itemText(0), "Centro 1  ·  ESO, Bachillerato");
    EXPECT_EQ(box.itemText(1), "Centro 2");
    EXPECT_EQ(box.itemText(2), "Centro 7  ·  Bachillerato");
    EXPECT_EQ(box.currentIndex(), 0) << "the smallest until another is chosen";
  });
  ASSERT_TRUE(window_->OpenSchool(SchoolFile()));
  EXPECT_EQ(LabelText("centro"), "Centro 7  ·  Bachillerato");
  EXPECT_EQ(KindsOffered(), Kinds{"Bachillerato"});
  EXPECT_EQ(cConfiguracion::Instancia().intIdCentro, 7);
  EXPECT_TRUE(cConfiguracion::Instancia().strNombreCentro.ends_with(" (centro 7)"));
}

TEST_F(CentresTest, TheCentreIsRememberedForTheSchool) {
  SignInAt(2);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile()));
  UseScreens(zendria::PendingScreens());
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1)) << "without a dialog";
  EXPECT_EQ(KindsOffered(), Kinds{"Bachillerato"});
  SignInAt(0, [](QComboBox& box) { EXPECT_EQ(box.currentIndex(), 2); });
  Trigger("cambiarUsuario");
  EXPECT_EQ(KindsOffered(), (Kinds{"ESO", "Bachillerato"}));
}

TEST_F(CentresTest, GivingUpKeepsTheCentre) {
  SignInAt(2);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile()));
  InDialog<zendria::SignInDialog>("cambiarUsuario", "entrada", [](auto& dialog) {
    dialog.CentreBox().setCurrentIndex(0);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(LabelText("centro"), "Centro 7  ·  Bachillerato");
}

TEST_F(CentresTest, ARememberedCentreThatHasGoneGivesWayToTheFirst) {
  preferences_.KeepCentre(SchoolFile(), 99);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  EXPECT_EQ(KindsOffered(), (Kinds{"ESO", "Bachillerato"}));
}

TEST_F(CentresTest, OneCentreLeavesNoChoice) {
  school_.Sql("DELETE FROM Centro_TipoEnsenanza WHERE CodCentro<>7");
  SignInAt(0, [](QComboBox& box) { EXPECT_FALSE(box.isVisible()); });
  ASSERT_TRUE(window_->OpenSchool(SchoolFile()));
  EXPECT_EQ(KindsOffered(), Kinds{"Bachillerato"});
  EXPECT_FALSE(window_->findChild<QWidget*>("centro")->isVisible());
  EXPECT_FALSE(cConfiguracion::Instancia().strNombreCentro.ends_with(")"));
  EXPECT_FALSE(preferences_.Centre(SchoolFile()));
}

TEST_F(CentresTest, ASchoolWithoutCentresOpens) {
  school_.Sql("DELETE FROM Centro_TipoEnsenanza");
  SignInAt(0);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile()));
  EXPECT_TRUE(KindsOffered().empty());
}

}  // namespace
}  // namespace quorvane::test
