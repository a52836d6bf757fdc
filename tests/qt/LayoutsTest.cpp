#include <QAbstractButton>
#include <QLabel>
#include <QTabBar>
#include <QTableView>

#include "adapters/qt/views/ControlView.h"
#include "tests/qt/Hands.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

QString TextOf(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  return button == nullptr ? QString() : button->text();
}

/// What a user would call broken: texts that are cut, controls over one another or off the window.
void ExpectTidy(const qt::FormWindow& window) {
  const auto form = window.Model().Name();
  for (const auto& view : window.Views()) {
    const auto* widget = view->Widget();
    if (!widget->isVisible()) continue;
    const auto what = form + "." + view->Model().Name();
    EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << what;
    EXPECT_GE(widget->width(), 8) << what;
    const auto text = TextOf(*widget);
    EXPECT_GE(widget->width(), widget->fontMetrics().horizontalAdvance(text)) << what;
    for (const auto& other : window.Views()) {
      const auto* beside = other->Widget();
      const auto strip = view->Model().Kind() == "TabStrip" || other->Model().Kind() == "TabStrip";
      if (view == other || !beside->isVisible() || strip ||
          beside->parentWidget() != widget->parentWidget())
        continue;
      EXPECT_FALSE(beside->geometry().intersects(widget->geometry()))
          << what << " and " << other->Model().Name();
    }
  }
}

class LayoutsTest : public SchoolScreenTest {
 protected:
  void LookAndPress(const std::string& button) {
    Then([button](qt::FormWindow& window) {
      ExpectTidy(window);
      Click(window, button);
    });
  }
  static void Choose(qt::FormWindow& window) {
    Pick(window, "cboTipoEnsenanza", 0);
    Pick(window, "cboCursos", 2);
    Pick(window, "cboSecciones", 0);
  }
};

TEST_F(LayoutsTest, TheScreensOfTheRegisterAreTidy) {
  Then([](qt::FormWindow& window) {
    ExpectTidy(window);
    Pick(window, "cboTEnsenanza", 0);
    Pick(window, "cboCurso", 2);
    Pick(window, "cboSeccion", 0);
    Click(window, "cmdAceptar");
  });
  Then([](qt::FormWindow& window) {
    ExpectTidy(window);
    Click(window, "cmdListar");
    Click(window, "cmdPropiedades");
    auto* bar = Of(window, "TabDatos")->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    ExpectTidy(window);
    Click(window, "cmdPropMat");
    window.resize(window.size() * 1.4);
    ExpectTidy(window);
    Click(window, "cmdCancelar");
  });
  LookAndPress("cmdCancelar");
  Then([](qt::FormWindow& window) {
    ExpectTidy(window);
    Click(window, "cmdAgregar");
    Click(window, "cmdPropiedades");
    Click(window, "cmdCancelar");
  });
  for (int i = 0; i < 3; ++i) LookAndPress("cmdCancelar");
  OpenNode(123);
}

TEST_F(LayoutsTest, TheGridsOfTheRegisterTakeTheRoomOfABiggerWindow) {
  Then(ChooseRegister);
  Then([](qt::FormWindow& window) {
    const auto* list = Of<QTableView>(window, "msgAlumnos");
    const auto before = list->size();
    window.resize(window.width() + 150, window.height() + 100);
    EXPECT_EQ(list->width(), before.width() + 150);
    EXPECT_EQ(list->height(), before.height() + 100);
    EXPECT_EQ(list->columnWidth(0), list->viewport()->width());
    Click(window, "cmdCancelar");
  });
  OpenNode(123);
}

class StepLayoutsTest : public LayoutsTest, public ::testing::WithParamInterface<int> {};

/// Step one with everything chosen, step two on the evaluation of that place in its list, and back.
TEST_P(StepLayoutsTest, AreTidy) {
  for (const auto evaluation : {1, 3}) {
    Then([evaluation](qt::FormWindow& window) {
      ExpectTidy(window);
      Choose(window);
      Pick(window, "cboEvaluaciones", evaluation);
      for (const auto* choice : {"cboMateria", "cboAlumno"})
        if (window.Widget(choice) != nullptr) Click(window, "cmdSiguiente");
      Click(window, "cmdNotaManual1(0)");
    });
    Then([](qt::FormWindow& window) {
      ExpectTidy(window);
      window.resize(window.size() * 1.3);
      ExpectTidy(window);
      Click(window, "cmdCancelar");
    });
  }
  LookAndPress("cmdNotaManual1(1)");
  OpenNode(static_cast<std::uint8_t>(GetParam()));
  EXPECT_THAT(messages, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Nodes, StepLayoutsTest, ::testing::Values(124, 125, 126, 127));

}  // namespace
}  // namespace quorvane::test
