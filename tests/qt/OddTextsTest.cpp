#include <QComboBox>
#include <QTableView>
#include <QTextDocument>
#include <algorithm>
#include <string>

#include "tests/qt/Hands.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using ::testing::Ge;
using ::testing::Le;

std::string Long() {
  std::string text;
  for (int i = 0; i < 100; ++i) text += "año";
  return text;
}

/// The sample school, each of its texts with that one before it. Section 5 is 3º ESO A.
class OddTextsScreenTest : public SchoolScreenTest,
                           public testing::WithParamInterface<std::string> {
 protected:
  OddTextsScreenTest() {
    auto text = GetParam();
    for (auto at = text.find('\''); at != std::string::npos; at = text.find('\'', at + 2))
      text.insert(at, 1, '\'');
    for (const std::string change :
         {"Alumno SET Apellido_1=", "Personal SET Apellido1=", "Materia SET Nombre=",
          "Seccion SET Descripcion=", "Curso SET Descripcion=", "TipoEnsenanza SET Nombre=",
          "NumEvaluacion SET Descripcion=", "TipoNota SET Nombre="}) {
      const auto column =
          change.substr(change.rfind(' ') + 1, change.size() - change.rfind(' ') - 2);
      school.Sql("UPDATE " + change + "'" + text + "'||" + column);
    }
  }

  /// What an entry or a cell shows of the text: it is one line.
  static std::string Shown() {
    auto text = GetParam();
    for (std::size_t at = 0; (at = text.find("\r\n")) != std::string::npos;) text.erase(at, 1);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
  }

  /// Nothing has shrunk to a line, nothing has grown out of the screen.
  static void ExpectInShape(const qt::FormWindow& window, const std::string& grid) {
    EXPECT_LT(window.width(), 1400);
    EXPECT_LT(window.height(), 1000);
    for (const auto* widget : window.findChildren<QWidget*>())
      if (widget->isVisibleTo(&window) && !widget->objectName().startsWith("qt_")) {
        EXPECT_FALSE(widget->size().isEmpty()) << widget->objectName().toStdString();
      }
    const auto* view = Of<QTableView>(window, grid);
    ASSERT_GT(view->model()->rowCount(), 0);
    for (int row = 0; row < view->model()->rowCount(); ++row)
      if (!view->isRowHidden(row)) {
        EXPECT_THAT(view->rowHeight(row), AllOf(Ge(10), Le(120)));
      }
  }
};

TEST_P(OddTextsScreenTest, TheRegisterShowsThemInItsLines) {
  Then(ChooseRegister);
  Then([](qt::FormWindow& window) {
    ExpectInShape(window, "msgAlumnos");
    EXPECT_THAT(CellText(window, "msgAlumnos", 0, 0), HasSubstr(Shown()));
    const auto cell = Of<QTableView>(window, "msgAlumnos")->model()->index(0, 0);
    EXPECT_FALSE(Qt::mightBeRichText(cell.data(Qt::ToolTipRole).toString()) &&
                 cell.data(Qt::ToolTipRole).toString().contains('<'));
    ClickCell(window, "msgAlumnos", 0, 0);
    Click(window, "cmdPropiedades");
    Click(window, "cmdCancelar");
  });
  Then([](qt::FormWindow& window) {
    ExpectInShape(window, "msgMaterias");
    EXPECT_THAT(CellText(window, "msgMaterias", 0, 0), HasSubstr(Shown()));
    Click(window, "cmdCancelar");
  });
  OpenNode(123);
  EXPECT_THAT(messages, IsEmpty());
}

TEST_P(OddTextsScreenTest, TheGradesShowThemInTheirLines) {
  Then([](qt::FormWindow& window) { ChooseGrades(window, 1); });
  Then([](qt::FormWindow& window) {
    ExpectInShape(window, "rtvNotasAlumno");
    EXPECT_THAT(CellText(window, "rtvNotasAlumno", 0, 0), HasSubstr(Shown()));
    EXPECT_THAT(Of<QComboBox>(window, "cboAlumnos")->currentText().toStdString(),
                HasSubstr(Shown()));
    Click(window, "cmdCancelar");
  });
  Then("cmdNotaManual1(1)");
  OpenNode(124);
  EXPECT_THAT(messages, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, OddTextsScreenTest,
                         testing::Values("O'Neil \"Rubio\" [a] ", "uno\tdos ", "uno\ndos\r\ntres ",
                                         Long(), "שלום عليكم ", "n\u0303 👩‍🏫 ",
                                         "&A && <b>B</b> %s "));

}  // namespace
}  // namespace quorvane::test
