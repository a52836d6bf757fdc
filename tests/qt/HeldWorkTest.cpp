// What an afternoon's work hangs on is neither saved nor dropped by a slip of the hand.

#include <QPushButton>
#include <QTableView>

#include "adapters/qt/views/ControlView.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

class HeldWorkTest : public SchoolScreenTest {
 protected:
  static bool IsBold(const qt::FormWindow& window) {
    return Of<QPushButton>(window, "cmdAceptar")->font().bold();
  }
  static void ExpectMarked(const qt::FormWindow& window, bool marked) {
    const auto& name = window.Model().Name();
    EXPECT_EQ(window.isWindowModified(), marked) << name;
    EXPECT_EQ(window.windowTitle().endsWith("[*]"), marked) << name;
    EXPECT_EQ(IsBold(window), marked) << name;
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
  static void ChooseAny(qt::FormWindow& window, int evaluation) {
    Pick(window, "cboTipoEnsenanza", 0);
    Pick(window, "cboCursos", 2);
    Pick(window, "cboSecciones", 0);
    Pick(window, "cboEvaluaciones", evaluation);
    for (const auto* choice : {"cboMateria", "cboAlumno"})
      if (window.Widget(choice) != nullptr) Pick(window, choice, 0);
    Click(window, "cmdNotaManual1(0)");
  }
};

TEST_F(HeldWorkTest, NoKeySavesOrDropsTheGradesButOnAButton) {
  for (const auto node : {124, 125, 126, 127}) {
    for (const auto evaluation : {1, 3}) {
      Then([evaluation](auto& window) { ChooseAny(window, evaluation); });
      Then(ExpectNoSlip, [](qt::FormWindow& window) {
        ExpectMarked(window, false);
        auto* cancel = Of(window, "cmdCancelar");
        cancel->setFocus();
        QTest::keyClick(cancel, Qt::Key_Return);
      });
    }
    Then([](qt::FormWindow& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    OpenNode(static_cast<std::uint8_t>(node));
  }
}

TEST_F(HeldWorkTest, AGradeThatIsNotSavedIsShownInTheTitleAndOnAceptar) {
  Then([](auto& window) { ChooseAny(window, 1); });
  Then([](qt::FormWindow& window) {
    ExpectMarked(window, false);
    auto* table = Of<QTableView>(window, "rtvNotasAlumno");
    table->setFocus();
    table->setCurrentIndex(table->model()->index(0, 1));
    const auto before = CellText(window, "rtvNotasAlumno", 0, 1);
    // The grade that stands there already is no change.
    QTest::keyClick(table, Qt::Key_F2);
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(CellText(window, "rtvNotasAlumno", 0, 1), before.empty() ? " " : before);
    ExpectMarked(window, false);
    table->setCurrentIndex(table->model()->index(0, 1));
    QTest::keyClick(table, before == "7" ? '8' : '7');
    QTest::keyClick(window.focusWidget(), Qt::Key_Return);
    ExpectMarked(window, true);
    Click(window, "cmdAceptar");
  });
  Then([](auto& window) { ChooseAny(window, 1); });
  Then([](qt::FormWindow& window) {
    ExpectMarked(window, false);
    Click(window, "cmdCancelar");
  });
  Then("cmdNotaManual1(1)");
  OpenNode(124);
}

TEST_F(HeldWorkTest, TheRegisterIsMarkedWhenADialogOfItsHasBeenAccepted) {
  Then(ChooseRegister);
  Then(
      ExpectNoSlip, "cmdListar", [](qt::FormWindow& window) { ExpectMarked(window, false); },
      "cmdListar", [](qt::FormWindow& window) { ExpectMarked(window, true); }, "cmdCancelar");
  Then("cmdCancelar");
  Then("cmdAceptar");
  OpenNode(123);
}

TEST_F(HeldWorkTest, ATeacherWhoIsLeftAsHeIsMarksNothing) {
  teacher = 2;
  Then(ChooseRegister);
  Then(
      ClickTab("TabDatos", 1), ClickCell("msgMaterias", 1, 0), "cmdPropMat",
      [](qt::FormWindow& window) { ExpectMarked(window, false); }, "cmdPropMat",
      [](qt::FormWindow& window) { ExpectMarked(window, true); }, "cmdCancelar");
  Then("cmdAceptar");
  Then("cmdNProfesor", "cmdAceptar");
  OpenNode(123);
}

TEST_F(HeldWorkTest, ASmallDialogKeepsItsKeys) {
  Then(Pick("cboTEnsenanza", 0), Pick("cboCurso", 2), Pick("cboSeccion", 0),
       Key("cboSeccion", Qt::Key_Return));
  Then("cmdCancelar");
  OpenNode(123);
}

}  // namespace
}  // namespace quorvane::test
