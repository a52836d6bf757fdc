#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QTableView>
#include <QTextDocument>
#include <map>
#include <string>

#include "adapters/qt/views/ControlView.h"
#include "tests/qt/SchoolScreenTest.h"

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
  static Gesture Enlarge(double factor) {
    return [=](auto& window) { window.resize(window.size() * factor); };
  }
};

TEST_F(LayoutsTest, TheScreensOfTheRegisterAreTidy) {
  Then(ExpectTidy, ChooseRegister());
  Then(ExpectTidy, "cmdListar", "cmdPropiedades", ClickTab("TabDatos", 1), ExpectTidy, "cmdPropMat",
       Enlarge(1.4), ExpectTidy, "cmdCancelar");
  Then(ExpectTidy, "cmdCancelar");
  Then(ExpectTidy, "cmdAgregar", "cmdPropiedades", "cmdCancelar");
  for (int i = 0; i < 3; ++i) Then(ExpectTidy, "cmdCancelar");
  OpenNode(kRegister);
}

TEST_F(LayoutsTest, TheGridsOfTheRegisterTakeTheRoomOfABiggerWindow) {
  const auto enlarge = [](auto& window) {
    const auto* list = Of<QTableView>(window, "msgAlumnos");
    const auto before = list->size();
    window.resize(window.width() + 150, window.height() + 100);
    EXPECT_EQ(list->width(), before.width() + 150);
    EXPECT_EQ(list->height(), before.height() + 100);
    EXPECT_EQ(list->columnWidth(0), list->viewport()->width());
  };
  InRegister(Steps(enlarge, "cmdCancelar"));
}

class StepLayoutsTest : public LayoutsTest, public ::testing::WithParamInterface<int> {};

/// Step one with everything chosen, step two on the evaluation of that place in its list, and back.
TEST_P(StepLayoutsTest, AreTidy) {
  const auto nextOfOwnChoice = [](auto& window) {
    for (const auto* choice : {"cboMateria", "cboAlumno"})
      if (window.Widget(choice) != nullptr) Click("cmdSiguiente")(window);
  };
  for (const auto evaluation : {1, 3}) {
    Then(ExpectTidy, Pick("cboTipoEnsenanza", 0), Pick("cboCursos", 2), Pick("cboSecciones", 0),
         Pick("cboEvaluaciones", evaluation), nextOfOwnChoice, "cmdNotaManual1(0)");
    Then(ExpectTidy, Enlarge(1.3), ExpectTidy, "cmdCancelar");
  }
  Then(ExpectTidy, "cmdNotaManual1(1)");
  OpenNode(GetParam());
  EXPECT_THAT(messages, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Nodes, StepLayoutsTest, ::testing::Values(124, 125, 126, 127));

using ::testing::Ge;
using ::testing::Le;

/// The sample school, each of its texts with that one before it. Section 5 is 3º ESO A.
class OddTextsScreenTest : public SchoolScreenTest,
                           public testing::WithParamInterface<std::string> {
 protected:
  OddTextsScreenTest() {
    const auto text = QString::fromStdString(GetParam()).replace("'", "''").toStdString();
    for (const auto& [table, column] :
         std::map<std::string, std::string>{{"Alumno", "Apellido_1"},
                                            {"Personal", "Apellido1"},
                                            {"Materia", "Nombre"},
                                            {"Seccion", "Descripcion"},
                                            {"Curso", "Descripcion"},
                                            {"TipoEnsenanza", "Nombre"},
                                            {"NumEvaluacion", "Descripcion"},
                                            {"TipoNota", "Nombre"}})
      school.Sql("UPDATE " + table + " SET " + column + "='" + text + "'||" + column);
  }

  /// What an entry or a cell shows of the text: it is one line.
  static std::string Shown() {
    auto text = QString::fromStdString(GetParam());
    return text.replace("\r\n", " ").replace('\n', ' ').toStdString();
  }

  /// The first cell shows the text; nothing has shrunk to a line, nothing has grown out of the
  /// screen.
  static void ExpectInShape(const qt::FormWindow& window, const std::string& grid) {
    EXPECT_LT(window.width(), 1400);
    EXPECT_LT(window.height(), 1000);
    for (const auto* widget : window.findChildren<QWidget*>())
      if (widget->isVisibleTo(&window) && !widget->objectName().startsWith("qt_")) {
        EXPECT_FALSE(widget->size().isEmpty()) << widget->objectName().toStdString();
      }
    const auto* view = Of<QTableView>(window, grid);
    ASSERT_GT(view->model()->rowCount(), 0);
    EXPECT_THAT(CellText(window, grid, 0, 0), HasSubstr(Shown()));
    for (int row = 0; row < view->model()->rowCount(); ++row)
      if (!view->isRowHidden(row)) {
        EXPECT_THAT(view->rowHeight(row), AllOf(Ge(10), Le(120)));
      }
  }
};

TEST_P(OddTextsScreenTest, TheRegisterShowsThemInItsLines) {
  const auto lookAtStudents = [](auto& window) {
    ExpectInShape(window, "msgAlumnos");
    const auto cell = Of<QTableView>(window, "msgAlumnos")->model()->index(0, 0);
    const auto tip = cell.data(Qt::ToolTipRole).toString();
    EXPECT_FALSE(Qt::mightBeRichText(tip) && tip.contains('<'));
  };
  const auto lookAtSubjects = [](auto& window) { ExpectInShape(window, "msgMaterias"); };
  InRegister(Steps(lookAtStudents, ClickCell("msgAlumnos", 0), "cmdPropiedades", "cmdCancelar"),
             Steps(lookAtSubjects, "cmdCancelar"));
  EXPECT_THAT(messages, IsEmpty());
}

TEST_P(OddTextsScreenTest, TheGradesShowThemInTheirLines) {
  const auto look = [](auto& window) {
    ExpectInShape(window, "rtvNotasAlumno");
    EXPECT_THAT(Of<QComboBox>(window, "cboAlumnos")->currentText().toStdString(),
                HasSubstr(Shown()));
  };
  InStepTwo(kByStudent, 1, look, "cmdCancelar");
  EXPECT_THAT(messages, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, OddTextsScreenTest,
                         testing::Values("O'Neil \"Rubio\" [a] ", "uno\tdos ", "uno\ndos\r\ntres ",
                                         QString("año").repeated(100).toStdString(), "שלום عليكم ",
                                         "n\u0303 👩‍🏫 ", "&A && <b>B</b> %s "));

}  // namespace
}  // namespace quorvane::test
