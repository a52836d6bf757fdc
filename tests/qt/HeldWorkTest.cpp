// What an afternoon's work hangs on is neither saved nor dropped by a slip of the hand.

#include <QPushButton>

#include "adapters/qt/views/ControlView.h"
#include "tests/qt/SchoolScreenTest.h"

namespace quorvane::test {
namespace {

class HeldWorkTest : public SchoolScreenTest {
 protected:
  static Gesture ExpectMarked(bool marked) {
    return [marked](auto& window) {
      const auto& name = window.Model().Name();
      EXPECT_EQ(window.isWindowModified(), marked) << name;
      EXPECT_EQ(window.windowTitle().endsWith("[*]"), marked) << name;
      EXPECT_EQ(Of(window, "cmdAceptar")->font().bold(), marked) << name;
    };
  }
  static void ExpectNoSlip(qt::FormWindow& window) {
    const auto name = window.Model().Name();
    for (auto* button : window.findChildren<QPushButton*>()) EXPECT_FALSE(button->isDefault());
    for (const auto& view : window.Views()) {
      auto* widget = view->Widget();
      if (!view->Model().Usable() || widget->focusPolicy() == Qt::NoFocus) continue;
      // Enter on a button, and in a list that opens a form, does what it says there.
      if (qobject_cast<QPushButton*>(widget) != nullptr || name == "frmAlumnoPendiente") continue;
      for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        widget->setFocus();
        QTest::keyClick(widget, key);
        EXPECT_TRUE(window.isVisible()) << name << ": " << view->Model().Name();
      }
    }
    Of(window, "cmdAceptar")->setFocus();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible()) << name;
  }
};

TEST_F(HeldWorkTest, NoKeySavesOrDropsTheGradesButOnAButton) {
  for (const auto node : {124, 125, 126, 127}) {
    for (const auto evaluation : {1, 3}) {
      Then(ChooseGrades(evaluation));
      Then(ExpectNoSlip, ExpectMarked(false), Key("cmdCancelar", Qt::Key_Return));
    }
    Then([](qt::FormWindow& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    OpenNode(node);
  }
}

TEST_F(HeldWorkTest, AGradeThatIsNotSavedIsShownInTheTitleAndOnAceptar) {
  Then(ChooseGrades(1));
  Then([](qt::FormWindow& window) {
    constexpr const char* kGrid = "rtvNotasAlumno";
    ExpectMarked(false)(window);
    const auto before = CellText(window, kGrid, 0, 1);
    // The grade that stands there already is no change.
    Steps(StandOn(kGrid, 0, 1), Press(Qt::Key_F2), Press(Qt::Key_Return))(window);
    EXPECT_EQ(CellText(window, kGrid, 0, 1), before.empty() ? " " : before);
    Steps(ExpectMarked(false), StandOn(kGrid, 0, 1), Press(before == "7" ? Qt::Key_8 : Qt::Key_7),
          Press(Qt::Key_Return), ExpectMarked(true), "cmdAceptar")(window);
  });
  InStepTwo(kByStudent, 1, ExpectMarked(false), "cmdCancelar");
}

TEST_F(HeldWorkTest, TheRegisterIsMarkedWhenADialogOfItsHasBeenAccepted) {
  InRegister(Steps(ExpectNoSlip, "cmdListar", ExpectMarked(false), "cmdListar", ExpectMarked(true),
                   "cmdCancelar"),
             "cmdCancelar", "cmdAceptar");
}

TEST_F(HeldWorkTest, ATeacherWhoIsLeftAsHeIsMarksNothing) {
  teacher = 2;
  InRegister(Steps(ClickTab("TabDatos", 1), ClickCell("msgMaterias", 1, 0), "cmdPropMat",
                   ExpectMarked(false), "cmdPropMat", ExpectMarked(true), "cmdCancelar"),
             "cmdAceptar", Steps("cmdNProfesor", "cmdAceptar"));
}

}  // namespace
}  // namespace quorvane::test
