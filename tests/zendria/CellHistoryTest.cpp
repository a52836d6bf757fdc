// The history of one grade, from the menu of its cell, in each of the eight forms.

#include <QContextMenuEvent>
#include <QMenu>
#include <QTableView>
#include <optional>
#include <tuple>

#include "apps/escuela/history/GradeHistory.h"
#include "apps/zendria/HistoryDialog.h"
#include "platform/controls/ComboBox.h"
#include "tests/zendria/DemoHost.h"

namespace quorvane::test {
namespace {

/// A screen of grades, and a cell of its form that is neither the first student's nor the first
/// subject's: of 3º ESO B, by the gestures that lead there.
struct CellOfForm {
  std::uint8_t node;
  std::string form;   ///< of an ordinary evaluation
  const char* fixed;  ///< what step one asks for more; null for nothing
  const char* walk;   ///< what the form walks through, and where to
  std::int32_t student;
  std::int32_t subject;
};

constexpr auto kJimena = 42;
constexpr auto kLeo = 39;
constexpr auto kPhysics = 24;
constexpr auto kLanguage = 29;

class CellHistoryTest : public DemoHost,
                        public testing::WithParamInterface<std::tuple<CellOfForm, bool>> {
 protected:
  /// Walks down the list with the keyboard to the entry that `is` says yes to.
  static void PickEntry(qt::FormWindow& window, const char* name,
                        const std::function<bool(const ComboBox& combo, int entry)>& is) {
    const auto& combo = dynamic_cast<ComboBox&>(*window.Model().Find(name));
    auto& box = dynamic_cast<QComboBox&>(*window.Widget(name));
    auto entry = 0;
    while (entry < combo.ListCount() && !is(combo, entry)) ++entry;
    ASSERT_LT(entry, combo.ListCount()) << name;
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_Home);
    for (auto at = combo.ListIndex(); at < entry; ++at) QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), entry) << name;
  }
  static void PickData(qt::FormWindow& window, const char* name, std::int32_t data) {
    PickEntry(window, name, [data](const auto& combo, int i) { return combo.ItemData(i) == data; });
  }
  /// The menu of a cell, opened with the keyboard as of its grid; null for none.
  static QMenu* MenuOf(QTableView& table, int row, int column) {
    table.setCurrentIndex(table.model()->index(row, column));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&table, &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  }
  static int RowOf(const QTableView& table, const QString& text) {
    for (int row = 0; row < table.model()->rowCount(); ++row)
      if (table.model()->index(row, 0).data().toString().contains(text)) return row;
    return -1;
  }
  [[nodiscard]] QString Text(const std::string& select) const {
    return QString::fromStdString(demo_.Db().Execute(select).Fields(0).Text());
  }
};

TEST_P(CellHistoryTest, IsThatCellsAlone) {
  const auto& [form, final] = GetParam();
  const auto evaluation = final ? 4 : 2;
  const auto stepOne = form.form + '1';
  const auto byStudent = std::string(form.walk) == "cboAlumnos";
  GradeHistory(demo_.Db()).Activate();
  // Of every student, subject and evaluation, so that what is shown too much is seen.
  for (const auto* const grade : {"5", "6"})
    for (const std::string one : {"EvaluacionPte", "EvaluacionActaPte"})
      demo_.Sql("UPDATE " + one + " SET CodNota=" + grade);
  const auto student =
      Text("SELECT Apellido_1 FROM Alumno WHERE IDAlumno=" + std::to_string(form.student));
  const auto subject = Text(
      "SELECT Nombre FROM Materia INNER JOIN MateriaDetalles ON "
      "MateriaDetalles.CodMateria=Materia.IDMateria WHERE IDMateriaDetalles=" +
      std::to_string(form.subject));
  OpenDemo();

  robot_.On(stepOne, [&](qt::FormWindow& window) {
    PickData(window, "cboCursos", 3);
    PickData(window, "cboSecciones", 6);
    PickData(window, "cboEvaluaciones", evaluation);
    if (form.fixed != nullptr)
      PickData(window, form.fixed, byStudent ? form.subject : form.student);
    Robot::Click(window, "cmdNotaManual1(0)");
  });
  robot_.On(form.form + (final ? "Final" : ""), [&](qt::FormWindow& window) {
    PickEntry(window, form.walk,
              [&wanted = byStudent ? student : subject](const auto& walk, int i) {
                return QString::fromStdString(walk.List(i)).contains(wanted);
              });
    auto& grid = Robot::Grid(window);
    const auto row = RowOf(grid, byStudent ? subject : student);
    ASSERT_GE(row, 0) << "neither the student nor the subject is there";
    auto* const menu = MenuOf(grid, row, 1);
    ASSERT_NE(menu, nullptr);
    auto* const entry = menu->findChild<QAction*>("historialDeNota");
    EXPECT_NE(entry, nullptr);
    EXPECT_NE(menu->findChild<QAction*>("imprimir"), nullptr) << "beside what else there is";
    menu->close();
    if (entry != nullptr) entry->trigger();
    QCoreApplication::processEvents();
    window.close();
  });
  CloseNext(stepOne);
  std::optional<int> shown;
  robot_.OnDialog<zendria::HistoryDialog>("historial", [&](auto& dialog) {
    shown = dialog.List().topLevelItemCount();
    for (int i = 0; i < *shown; ++i) {
      const auto& change = *dialog.List().topLevelItem(i);
      EXPECT_TRUE(change.text(1).startsWith(student + " ")) << change.text(1).toStdString();
      EXPECT_TRUE(change.text(2).startsWith(subject + " (")) << change.text(2).toStdString();
      EXPECT_EQ(change.text(3), final ? "Final Ordinaria" : "2ª Evaluación");
    }
    dialog.close();
  });
  Play(form.node);
  ASSERT_TRUE(shown.has_value());
  const auto changes = demo_.Number(
      "SELECT COUNT(*) FROM HistorialNotas WHERE CodAlumno=" + std::to_string(form.student) +
      " AND CodMatDet=" + std::to_string(form.subject) +
      " AND CodNumEvaluacion=" + std::to_string(evaluation));
  EXPECT_EQ(*shown, changes);
  EXPECT_EQ(changes, 2);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, CellHistoryTest,
    testing::Combine(
        testing::Values(
            CellOfForm{124, "frmNotaManual", nullptr, "cboAlumnos", kLeo, kLanguage},
            CellOfForm{125, "frmNotaMateria", nullptr, "cboMaterias", kJimena, kPhysics},
            CellOfForm{126, "frmNotaSeccionMateria", "cboAlumno", "cboMaterias", kLeo, kLanguage},
            CellOfForm{127, "frmNotaSeccionAlumno", "cboMateria", "cboAlumnos", kJimena, kPhysics}),
        testing::Bool()),
    [](const auto& one) {
      return std::get<0>(one.param).form + (std::get<1>(one.param) ? "Final" : "");
    });

}  // namespace
}  // namespace quorvane::test
