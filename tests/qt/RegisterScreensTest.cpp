#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTableView>

#include "platform/RuntimeError.h"
#include "tests/qt/Hands.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

constexpr std::uint8_t kPendientes = 123;

/// Node 123 of the sample school, from class selection to the rows; section 5 is 3º ESO A.
class RegisterScreensTest : public SchoolScreenTest {
 protected:
  static void OpenFirstStudent(const qt::FormWindow& window) {
    ClickCell(window, "msgAlumnos", 0, 0);
    Click(window, "cmdPropiedades");
    Click(window, "cmdCancelar");
  }
  static Gesture ClickFirstOffered() {
    return [](auto& window) { ClickEntry(window, "lstDisponibles", 0); };
  }
  [[nodiscard]] std::vector<std::string> Register() const {
    return school.Rows("SELECT codAlumno FROM Seccion_AlumnoPte WHERE codSeccion=5");
  }
};

TEST_F(RegisterScreensTest, RefusesWithoutAClass) {
  const auto hasTitle = [](auto& window) {
    EXPECT_EQ(window.windowTitle(), "Alumnos con materias pendientes");
  };
  Then(
      hasTitle, "cmdAceptar", [](auto& window) { EXPECT_TRUE(window.isVisible()); }, "cmdCancelar");
  OpenNode(kPendientes);
  EXPECT_THAT(messages, ElementsAre("Debe seleccionar un tipo de enseñanza, curso y sección"));
}

TEST_F(RegisterScreensTest, AnotherCourseEmptiesTheSections) {
  const auto hasNoSection = [](auto& window) {
    EXPECT_EQ(Of<QComboBox>(window, "cboSeccion")->currentIndex(), -1);
  };
  Then(Pick("cboTEnsenanza", 0), Pick("cboCurso", "3º ESO"), Pick("cboSeccion", 0),
       Pick("cboCurso", "2º ESO"), hasNoSection,
       [](auto& window) { QTest::keyClick(&window, Qt::Key_Escape); });
  OpenNode(kPendientes);
}

TEST_F(RegisterScreensTest, AStudentWithASubjectAndTwoEvaluationsIsSaved) {
  const auto before = Register();
  std::string student;
  Then(ChooseRegister);
  const auto openTheNewOne = [&student](auto& window) {
    auto row = 0;
    while (CellText(window, "msgAlumnos", row, 0) != student) ++row;
    DoubleClickCell(window, "msgAlumnos", row, 0);
  };
  Then("cmdListar", openTheNewOne, "cmdAceptar");
  const auto takeTheFirst = [&student](auto& window) {
    student = Of<QListWidget>(window, "lstDisponibles")->item(0)->text().toStdString();
    DoubleClickEntry(window, "lstDisponibles", 0);
  };
  Then(takeTheFirst, "cmdAceptar");
  const auto isHis = [&student](auto& window) {
    EXPECT_EQ(Of<QLabel>(window, "Label2")->text().toStdString(), student);
  };
  const auto hasTheSubject = [](auto& window) {
    EXPECT_THAT(CellText(window, "msgMaterias", 0, 0), HasSubstr("(1º ESO)"));
  };
  const auto isMarked = [](auto& window) { EXPECT_EQ(CellText(window, "msgMaterias", 0, 1), "X"); };
  Then(isHis, "cmdAgregar", hasTheSubject, Key("msgMaterias", Qt::Key_Return), isMarked,
       "cmdAceptar");
  Then(Pick("cboCurso", "1º ESO"), Pick("cboSeccion", 0), Pick("cboMateria", 0), "cmdAceptar");
  const auto hasTwo = [](auto& window) {
    EXPECT_EQ(Of<QListWidget>(window, "lstSeleccionados")->count(), 2);
  };
  // The keyboard goes on where it was when an entry has gone to the other list.
  Then(ClickFirstOffered(), Key("lstDisponibles", Qt::Key_Return), ClickFirstOffered(),
       "cmdAgregarUno", hasTwo, "cmdAceptar");
  OpenNode(kPendientes);
  EXPECT_THAT(messages, IsEmpty());

  EXPECT_THAT(Register(), SizeIs(before.size() + 1));
  const auto subject = school.Rows("SELECT MAX(IDAlumnoPte_MatDet) FROM AlumnoPte_MatDet");
  const auto owner =
      school.Rows("SELECT CodAlumno FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=" + subject[0]);
  EXPECT_THAT(before, Not(Contains(owner[0])));
  EXPECT_THAT(Register(), Contains(owner[0]));
  const auto rows = [this, &subject](const std::string& table) {
    return school.Rows("SELECT * FROM " + table + " WHERE CodAlumnoPte_MatDet=" + subject[0])
        .size();
  };
  EXPECT_EQ(rows("EvaluacionPte") + rows("EvaluacionActaPte"), 2U);
}

// Eliminar asks nothing.
TEST_F(RegisterScreensTest, TheSubjectThatTheUserLookedAtIsTheOneThatEliminarTakes) {
  Then(ChooseRegister);
  Then(OpenFirstStudent);
  const auto lookAndRemove = [](auto& window) {
    const auto* const table = Of<QTableView>(window, "msgMaterias");
    const auto first = CellText(window, "msgMaterias", 0, 0);
    const auto rows = table->model()->rowCount();
    ASSERT_GE(rows, 2);
    DoubleClickCell(window, "msgMaterias", rows - 1, 0);
    EXPECT_EQ(table->currentIndex().row(), rows - 1);
    const auto chosen = table->selectionModel()->selectedRows();
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen.front().row(), rows - 1);
    Click(window, "cmdEliminar");
    EXPECT_EQ(table->model()->rowCount(), rows - 1);
    EXPECT_EQ(CellText(window, "msgMaterias", 0, 0), first);
  };
  Then(lookAndRemove, "cmdCancelar");
  Then("cmdCancelar");
  OpenNode(kPendientes);
}

TEST_F(RegisterScreensTest, EnterInThePickersListsNeverAccepts) {
  Then(ChooseRegister);
  Then("cmdListar", "cmdCancelar");
  const auto takeAll = [](auto& window) {
    auto* const right = Of<QListWidget>(window, "lstDisponibles");
    const auto before = right->count();
    ASSERT_GT(before, 0);
    for (int i = 0; i < before; ++i) {
      ClickEntry(window, "lstDisponibles", 0);
      Key(window, "lstDisponibles", Qt::Key_Return);
      EXPECT_TRUE(right->hasFocus());
    }
    EXPECT_EQ(right->count(), 0);
  };
  Then(
      takeAll, Key("lstDisponibles", Qt::Key_Return), Key("lstSeleccionados", Qt::Key_Enter),
      [](auto& window) { EXPECT_TRUE(window.isVisible()); }, "cmdCancelar");
  const auto before = Register();
  OpenNode(kPendientes);
  EXPECT_EQ(Register(), before);
}

TEST_F(RegisterScreensTest, TheArrowsMoveASubjectAndKeepItInSight) {
  Then(ChooseRegister);
  Then(OpenFirstStudent);
  const auto moveUpAndDown = [](auto& window) {
    const auto first = CellText(window, "msgMaterias", 0, 0);
    const auto second = CellText(window, "msgMaterias", 1, 0);
    ClickCell(window, "msgMaterias", 1, 0);
    Click(window, "cmdSubir");
    EXPECT_EQ(CellText(window, "msgMaterias", 0, 0), second);
    EXPECT_EQ(CellText(window, "msgMaterias", 1, 0), first);
    EXPECT_EQ(Of<QTableView>(window, "msgMaterias")->currentIndex().row(), 0);
    EXPECT_EQ(window.focusWidget(), Of(window, "msgMaterias"));
    Click(window, "cmdBajar");
    EXPECT_EQ(CellText(window, "msgMaterias", 0, 0), first);
  };
  Then(moveUpAndDown, "cmdCancelar");
  OpenNode(kPendientes);
}

TEST_F(RegisterScreensTest, ATeacherIsFoundSetAndSaved) {
  teacher = 2;
  const auto name = school.Rows(
      "SELECT Apellido1||' '||Apellido2||', '||Nombre FROM Personal "
      "WHERE IDPersonal=2");
  ASSERT_THAT(name, SizeIs(1));
  Then(ChooseRegister);
  const auto hidesStudents = [](auto& window) {
    EXPECT_FALSE(Of(window, "msgAlumnos")->isVisible());
  };
  const auto showsName = [&name](auto& window) {
    EXPECT_EQ(CellText(window, "msgMaterias", 1, 1), name[0]);
  };
  Then(ClickTab("TabDatos", 1), hidesStudents, ClickCell("msgMaterias", 1, 0), "cmdPropMat",
       showsName, "cmdAceptar");
  const auto found = [&name](auto& window) {
    EXPECT_EQ(Of<QLabel>(window, "lblProfesor")->text().toStdString(), name[0]);
  };
  Then("cmdNProfesor", found, "cmdAceptar");
  const auto before = school.Rows("SELECT * FROM Profesor_Pte WHERE CodProfesor=2").size();
  OpenNode(kPendientes);
  EXPECT_EQ(school.Rows("SELECT * FROM Profesor_Pte WHERE CodProfesor=2").size(), before + 1);
}

TEST_F(RegisterScreensTest, AStatementThatFailsWhileSavingComesOutOfAllScreens) {
  Then(ChooseRegister);
  Then(
      "cmdListar", [this](auto&) { school.Sql("DROP TABLE Seccion_AlumnoPte"); }, "cmdAceptar");
  Then("cmdAgregarTodos", "cmdAceptar");
  try {
    OpenNode(kPendientes);
    FAIL() << "nothing came out";
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.Is(ErrorNumber::StatementFailed));
  }
  ExpectDone();
}

}  // namespace
}  // namespace quorvane::test
