#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTableView>

#include "platform/RuntimeError.h"
#include "tests/qt/SchoolScreenTest.h"

namespace quorvane::test {
namespace {

using ::testing::Property;

/// Node 123 of the sample school, from class selection to the rows; section 5 is 3º ESO A.
class RegisterScreensTest : public SchoolScreenTest {
 protected:
  static Gesture OpenFirstStudent() {
    return Steps(ClickCell("msgAlumnos", 0, 0), "cmdPropiedades", "cmdCancelar");
  }
  [[nodiscard]] std::vector<std::string> Register() const {
    return school.Rows("SELECT codAlumno FROM Seccion_AlumnoPte WHERE codSeccion=5");
  }
};

TEST_F(RegisterScreensTest, RefusesWithoutAClass) {
  const auto hasTitle = [](auto& window) {
    EXPECT_EQ(window.windowTitle(), "Alumnos con materias pendientes");
  };
  Then(hasTitle, "cmdAceptar", IsVisible, "cmdCancelar");
  OpenNode(kRegister);
  EXPECT_THAT(messages, ElementsAre("Debe seleccionar un tipo de enseñanza, curso y sección"));
}

TEST_F(RegisterScreensTest, AnotherCourseEmptiesTheSections) {
  const auto hasNoSection = [](auto& window) {
    EXPECT_EQ(Of<QComboBox>(window, "cboSeccion")->currentIndex(), -1);
  };
  Then(Pick("cboTEnsenanza", 0), Pick("cboCurso", "3º ESO"), Pick("cboSeccion", 0),
       Pick("cboCurso", "2º ESO"), hasNoSection,
       [](auto& window) { QTest::keyClick(&window, Qt::Key_Escape); });
  OpenNode(kRegister);
}

TEST_F(RegisterScreensTest, AStudentWithASubjectAndTwoEvaluationsIsSaved) {
  const auto before = Register();
  std::string student;
  const auto openTheNewOne = [&student](auto& window) {
    auto row = 0;
    while (CellText(window, "msgAlumnos", row) != student) ++row;
    DoubleClickCell("msgAlumnos", row)(window);
  };
  const auto noteTheFirst = [&student](auto& window) {
    student = CellText(window, "lstDisponibles", 0);
  };
  const auto isHis = [&student](auto& window) {
    EXPECT_EQ(Of<QLabel>(window, "Label2")->text().toStdString(), student);
  };
  const auto hasTheSubject = [](auto& window) {
    EXPECT_THAT(CellText(window, "msgMaterias", 0), HasSubstr("(1º ESO)"));
  };
  const auto isMarked = [](auto& window) { EXPECT_EQ(CellText(window, "msgMaterias", 0, 1), "X"); };
  const auto hasTwo = [](auto& window) {
    EXPECT_EQ(Of<QListWidget>(window, "lstSeleccionados")->count(), 2);
  };
  InRegister(
      Steps("cmdListar", openTheNewOne, "cmdAceptar"),
      Steps(noteTheFirst, DoubleClickCell("lstDisponibles", 0), "cmdAceptar"),
      Steps(isHis, "cmdAgregar", hasTheSubject, Key("msgMaterias", Qt::Key_Return), isMarked,
            "cmdAceptar"),
      Steps(Pick("cboCurso", "1º ESO"), Pick("cboSeccion", 0), Pick("cboMateria", 0), "cmdAceptar"),
      // The keyboard goes on where it was when an entry has gone to the other list.
      Steps(ClickCell("lstDisponibles", 0), Key("lstDisponibles", Qt::Key_Return),
            ClickCell("lstDisponibles", 0), "cmdAgregarUno", hasTwo, "cmdAceptar"));
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
  const auto lookAndRemove = [](auto& window) {
    const auto* const table = Of<QTableView>(window, "msgMaterias");
    const auto first = CellText(window, "msgMaterias", 0);
    const auto rows = table->model()->rowCount();
    ASSERT_GE(rows, 2);
    DoubleClickCell("msgMaterias", rows - 1)(window);
    EXPECT_EQ(table->currentIndex().row(), rows - 1);
    EXPECT_THAT(table->selectionModel()->selectedRows(),
                ElementsAre(Property(&QModelIndex::row, rows - 1)));
    Click("cmdEliminar")(window);
    EXPECT_EQ(table->model()->rowCount(), rows - 1);
    EXPECT_EQ(CellText(window, "msgMaterias", 0), first);
  };
  InRegister(OpenFirstStudent(), Steps(lookAndRemove, "cmdCancelar"), "cmdCancelar");
}

TEST_F(RegisterScreensTest, EnterInThePickersListsNeverAccepts) {
  const auto takeAll = [](auto& window) {
    const auto* const right = Of<QListWidget>(window, "lstDisponibles");
    const auto before = right->count();
    ASSERT_GT(before, 0);
    for (int i = 0; i < before; ++i) {
      Steps(ClickCell("lstDisponibles", 0), Key("lstDisponibles", Qt::Key_Return))(window);
      EXPECT_TRUE(right->hasFocus());
    }
    EXPECT_EQ(right->count(), 0);
  };
  const auto before = Register();
  InRegister(Steps("cmdListar", "cmdCancelar"),
             Steps(takeAll, Key("lstDisponibles", Qt::Key_Return),
                   Key("lstSeleccionados", Qt::Key_Enter), IsVisible, "cmdCancelar"));
  EXPECT_EQ(Register(), before);
}

TEST_F(RegisterScreensTest, TheArrowsMoveASubjectAndKeepItInSight) {
  const auto moveUpAndDown = [](auto& window) {
    const auto first = CellText(window, "msgMaterias", 0);
    const auto second = CellText(window, "msgMaterias", 1);
    Steps(ClickCell("msgMaterias", 1), "cmdSubir")(window);
    EXPECT_EQ(CellText(window, "msgMaterias", 0), second);
    EXPECT_EQ(CellText(window, "msgMaterias", 1), first);
    EXPECT_EQ(Of<QTableView>(window, "msgMaterias")->currentIndex().row(), 0);
    EXPECT_EQ(window.focusWidget(), Of(window, "msgMaterias"));
    Click("cmdBajar")(window);
    EXPECT_EQ(CellText(window, "msgMaterias", 0), first);
  };
  InRegister(OpenFirstStudent(), Steps(moveUpAndDown, "cmdCancelar"));
}

TEST_F(RegisterScreensTest, ATeacherIsFoundSetAndSaved) {
  teacher = 2;
  const auto name = school.Rows(
      "SELECT Apellido1||' '||Apellido2||', '||Nombre FROM Personal "
      "WHERE IDPersonal=2");
  ASSERT_THAT(name, SizeIs(1));
  const auto hidesStudents = [](auto& window) {
    EXPECT_FALSE(Of(window, "msgAlumnos")->isVisible());
  };
  const auto showsName = [&name](auto& window) {
    EXPECT_EQ(CellText(window, "msgMaterias", 1, 1), name[0]);
  };
  const auto found = [&name](auto& window) {
    EXPECT_EQ(Of<QLabel>(window, "lblProfesor")->text().toStdString(), name[0]);
  };
  const auto rows = [this] {
    return school.Rows("SELECT * FROM Profesor_Pte WHERE CodProfesor=2").size();
  };
  const auto before = rows();
  InRegister(Steps(ClickTab("TabDatos", 1), hidesStudents, ClickCell("msgMaterias", 1),
                   "cmdPropMat", showsName, "cmdAceptar"),
             Steps("cmdNProfesor", found, "cmdAceptar"));
  EXPECT_EQ(rows(), before + 1);
}

TEST_F(RegisterScreensTest, AStatementThatFailsWhileSavingComesOutOfAllScreens) {
  const auto dropTable = [this](auto&) { school.Sql("DROP TABLE Seccion_AlumnoPte"); };
  try {
    InRegister(Steps("cmdListar", dropTable, "cmdAceptar"), Steps("cmdAgregarTodos", "cmdAceptar"));
    FAIL() << "nothing came out";
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.Is(ErrorNumber::StatementFailed));
  }
  ExpectDone();
}

}  // namespace
}  // namespace quorvane::test
