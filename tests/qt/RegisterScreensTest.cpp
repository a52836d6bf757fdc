#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTabBar>
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
  static void ShowSubjects(const qt::FormWindow& window) {
    auto* bar = Of(window, "TabDatos")->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
  }
  [[nodiscard]] std::vector<std::string> Register() const {
    return school.Rows("SELECT codAlumno FROM Seccion_AlumnoPte WHERE codSeccion=5");
  }
};

TEST_F(RegisterScreensTest, RefusesWithoutAClass) {
  Then([](qt::FormWindow& window) {
    EXPECT_EQ(window.windowTitle(), "Alumnos con materias pendientes");
    Click(window, "cmdAceptar");
    EXPECT_TRUE(window.isVisible());
    Click(window, "cmdCancelar");
  });
  OpenNode(kPendientes);
  EXPECT_THAT(messages, ElementsAre("Debe seleccionar un tipo de enseñanza, curso y sección"));
}

TEST_F(RegisterScreensTest, AnotherCourseEmptiesTheSections) {
  Then([](qt::FormWindow& window) {
    Pick(window, "cboTEnsenanza", 0);
    Pick(window, "cboCurso", "3º ESO");
    Pick(window, "cboSeccion", 0);
    Pick(window, "cboCurso", "2º ESO");
    EXPECT_EQ(Of<QComboBox>(window, "cboSeccion")->currentIndex(), -1);
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  OpenNode(kPendientes);
}

TEST_F(RegisterScreensTest, AStudentWithASubjectAndTwoEvaluationsIsSaved) {
  const auto before = Register();
  std::string student;
  Then(ChooseRegister);
  Then([&student](qt::FormWindow& window) {
    Click(window, "cmdListar");
    auto row = 0;
    while (CellText(window, "msgAlumnos", row, 0) != student) ++row;
    DoubleClickCell(window, "msgAlumnos", row, 0);
    Click(window, "cmdAceptar");
  });
  Then([&student](qt::FormWindow& window) {
    student = Of<QListWidget>(window, "lstDisponibles")->item(0)->text().toStdString();
    DoubleClickEntry(window, "lstDisponibles", 0);
    Click(window, "cmdAceptar");
  });
  Then([&student](qt::FormWindow& window) {
    EXPECT_EQ(Of<QLabel>(window, "Label2")->text().toStdString(), student);
    Click(window, "cmdAgregar");
    EXPECT_THAT(CellText(window, "msgMaterias", 0, 0), HasSubstr("(1º ESO)"));
    Key(window, "msgMaterias", Qt::Key_Return);
    EXPECT_EQ(CellText(window, "msgMaterias", 0, 1), "X");
    Click(window, "cmdAceptar");
  });
  Then([](qt::FormWindow& window) {
    Pick(window, "cboCurso", "1º ESO");
    Pick(window, "cboSeccion", 0);
    Pick(window, "cboMateria", 0);
    Click(window, "cmdAceptar");
  });
  Then([](qt::FormWindow& window) {
    // The keyboard goes on where it was when an entry has gone to the other list.
    ClickEntry(window, "lstDisponibles", 0);
    Key(window, "lstDisponibles", Qt::Key_Return);
    ClickEntry(window, "lstDisponibles", 0);
    Click(window, "cmdAgregarUno");
    EXPECT_EQ(Of<QListWidget>(window, "lstSeleccionados")->count(), 2);
    Click(window, "cmdAceptar");
  });
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
  Then([](qt::FormWindow& window) {
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
    Click(window, "cmdCancelar");
  });
  Then("cmdCancelar");
  OpenNode(kPendientes);
}

TEST_F(RegisterScreensTest, EnterInThePickersListsNeverAccepts) {
  Then(ChooseRegister);
  Then([](qt::FormWindow& window) {
    Click(window, "cmdListar");
    Click(window, "cmdCancelar");
  });
  Then([](qt::FormWindow& window) {
    auto* const right = Of<QListWidget>(window, "lstDisponibles");
    const auto before = right->count();
    ASSERT_GT(before, 0);
    for (int i = 0; i < before; ++i) {
      ClickEntry(window, "lstDisponibles", 0);
      Key(window, "lstDisponibles", Qt::Key_Return);
      EXPECT_TRUE(right->hasFocus());
    }
    EXPECT_EQ(right->count(), 0);
    Key(window, "lstDisponibles", Qt::Key_Return);
    Key(window, "lstSeleccionados", Qt::Key_Enter);
    ASSERT_TRUE(window.isVisible());
    Click(window, "cmdCancelar");
  });
  const auto before = Register();
  OpenNode(kPendientes);
  EXPECT_EQ(Register(), before);
}

TEST_F(RegisterScreensTest, TheArrowsMoveASubjectAndKeepItInSight) {
  Then(ChooseRegister);
  Then(OpenFirstStudent);
  Then([](qt::FormWindow& window) {
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
    Click(window, "cmdCancelar");
  });
  OpenNode(kPendientes);
}

TEST_F(RegisterScreensTest, ATeacherIsFoundSetAndSaved) {
  teacher = 2;
  const auto name = school.Rows(
      "SELECT Apellido1||' '||Apellido2||', '||Nombre FROM Personal "
      "WHERE IDPersonal=2");
  ASSERT_THAT(name, SizeIs(1));
  Then(ChooseRegister);
  Then([&name](qt::FormWindow& window) {
    ShowSubjects(window);
    EXPECT_FALSE(Of(window, "msgAlumnos")->isVisible());
    ClickCell(window, "msgMaterias", 1, 0);
    Click(window, "cmdPropMat");
    EXPECT_EQ(CellText(window, "msgMaterias", 1, 1), name[0]);
    Click(window, "cmdAceptar");
  });
  Then([&name](qt::FormWindow& window) {
    Click(window, "cmdNProfesor");
    EXPECT_EQ(Of<QLabel>(window, "lblProfesor")->text().toStdString(), name[0]);
    Click(window, "cmdAceptar");
  });
  const auto before = school.Rows("SELECT * FROM Profesor_Pte WHERE CodProfesor=2").size();
  OpenNode(kPendientes);
  EXPECT_EQ(school.Rows("SELECT * FROM Profesor_Pte WHERE CodProfesor=2").size(), before + 1);
}

TEST_F(RegisterScreensTest, AStatementThatFailsWhileSavingComesOutOfAllScreens) {
  Then(ChooseRegister);
  Then([this](qt::FormWindow& window) {
    Click(window, "cmdListar");
    school.Sql("DROP TABLE Seccion_AlumnoPte");
    Click(window, "cmdAceptar");
  });
  Then([](qt::FormWindow& window) {
    Click(window, "cmdAgregarTodos");
    Click(window, "cmdAceptar");
  });
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
