#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/SignInDialog.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using GradesByHandTest = HostTest;
using Window = qt::FormWindow;

QTableView& Grid(Window& window) {
  return dynamic_cast<QTableView&>(*window.Widget("rtvNotasAlumno"));
}

/// Opens the list of a cell with F2, narrows it by typing and chooses with Enter.
void Grade(Window& window, int row, int column, const QString& text) {
  auto& grid = Grid(window);
  grid.setFocus();
  grid.setCurrentIndex(grid.model()->index(row, column));
  QTest::keyClick(&grid, Qt::Key_F2);
  // The list has the keyboard.
  auto* const filter = window.focusWidget();
  ASSERT_NE(filter, &grid);
  QTest::keyClicks(filter, text);
  QTest::keyClick(filter, Qt::Key_Return);
  EXPECT_EQ(grid.model()->index(row, column).data().toString(), text);
}

// The tutor of 2º ESO A, from her name to the saved row, by keyboard and mouse.
TEST_F(GradesByHandTest, ATutorSignsInGradesASubjectAndSaves) {
  school_.Registra(321, 1);
  const auto pending = school_.Pendiente(1, 3111, 1);
  school_.Evalua(pending, 1);
  SignIn("ruiz");
  ASSERT_TRUE(window_->OpenSchool(SchoolFile()));

  robot_.On("frmNotaManual1", {{"cboCursos", "2"},
                               {"cboSecciones", "A"},
                               {"cboEvaluaciones", "1"},
                               {"cboEvaluaciones", Qt::Key_Return}});
  robot_.On("frmNotaManual", [this](Window& window) {
    EXPECT_EQ(Grid(window).model()->index(0, 0).data().toString(), "Lengua (1º ESO)");
    EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM BloqueoPte WHERE CodMatDet=3111"), 1);
    Grade(window, 0, 1, "7");
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmNotaManual1", {"cmdNotaManual1(1)"});
  Play(124);
  EXPECT_TRUE(robot_.messages.empty());
  EXPECT_TRUE(robot_.unexpected.empty());
  EXPECT_EQ(school_.Rows("SELECT Evaluado, CodNota, UltimaEvaluada FROM EvaluacionPte"),
            std::vector<std::string>{"-1|107|-1"});
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM PublicacionPte"), 0);
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM BloqueoPte"), 0);
}

}  // namespace
}  // namespace quorvane::test
